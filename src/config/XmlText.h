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

/// Whether bytes come with an encoding of their own (byte order mark, declaration) or are UTF-8,
/// whatever the declaration says.
enum class XmlBytes { File, Utf8 };

/// Parses text so that writing it again gives the same bytes between and inside its elements.
/// False for text that is not well formed, declares entities, is in an unknown encoding, or is
/// larger or deeper than a document may be (`StrictXml.h`): then the document is empty.
[[nodiscard]] bool parseXml(pugi::xml_document& document, std::string_view bytes, XmlBytes kind);

/// A node (or document) as text, in UTF-8, without a byte added.
[[nodiscard]] std::string xmlOf(const pugi::xml_node& node);

/// The characters in a node and all below it, without comments.
[[nodiscard]] std::string textOf(const pugi::xml_node& node);

/// Puts a text in the place of a node's content. False for a node that has none, and for a text
/// that no document can hold.
[[nodiscard]] bool setText(pugi::xml_node node, const std::string& text);

/// Whether an element or attribute may bear this name.
[[nodiscard]] bool isXmlName(std::string_view name);

/// Whether a document can hold these characters: they are UTF-8, without control characters but
/// tabs and line ends, and without U+FFFE and U+FFFF (XML 1.0, section 2.2).
[[nodiscard]] bool isXmlChars(std::string_view text) noexcept;

} // namespace tovik::config
