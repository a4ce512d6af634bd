// SPDX-License-Identifier: GPL-3.0-or-later
// XML files as plain trees, for documents that are read or written whole. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tovik::config {

/// An element. Texts are UTF-8.
struct XmlElement {
    std::string name{}; ///< read: without the prefix of a namespace
    std::vector<std::pair<std::string, std::string>> attributes{};
    std::string text{}; ///< the characters directly in it
    std::vector<XmlElement> children{};

    /// The first child of that name; null for none.
    [[nodiscard]] const XmlElement* child(std::string_view childName) const noexcept;
};

/// The root of a file. Nothing for what is no document, or one beyond the bounds of `StrictXml.h`.
[[nodiscard]] std::optional<XmlElement> readXmlTree(std::string_view bytes);

/// A file in UTF-8 with this root. Characters that no document can hold become blanks; names must
/// be such as a document can have.
[[nodiscard]] std::string xmlFileOf(const XmlElement& root);

} // namespace tovik::config
