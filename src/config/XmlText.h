// SPDX-License-Identifier: GPL-3.0-or-later
// Between XML text and the library's document. Any thread, each document on one.
#pragma once

#include <string>
#include <string_view>

namespace pugi {
class xml_document;
class xml_node;
} // namespace pugi

namespace tovik::config {

/// Whether bytes come with an encoding of their own (byte-order mark, declaration) or are UTF-8.
enum class XmlBytes { File, Utf8 };

/// Parses text so that writing it again gives the same bytes between and inside its elements.
/// False for text that is not well formed: then the document is empty. Entities are not expanded.
[[nodiscard]] bool parseXml(pugi::xml_document& document, std::string_view bytes, XmlBytes kind);

/// A node (or document) as text, in UTF-8, without a byte added.
[[nodiscard]] std::string xmlOf(const pugi::xml_node& node);

/// The characters in a node and all below it, without comments.
[[nodiscard]] std::string textOf(const pugi::xml_node& node);

/// Puts a text in the place of a node's content. False for a node that has none.
[[nodiscard]] bool setText(pugi::xml_node node, const std::string& text);

/// Whether an element or attribute may bear this name (XML 1.0, with every byte outside ASCII
/// taken for a letter).
[[nodiscard]] bool isXmlName(std::string_view name) noexcept;

} // namespace tovik::config
