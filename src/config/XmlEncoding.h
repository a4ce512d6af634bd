// SPDX-License-Identifier: GPL-3.0-or-later
// Which characters the bytes of an XML file stand for. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovik::config {

/// A file's text in UTF-8, without a byte order mark. The encoding is told by the mark, by how the
/// first "<" is written, or by the declaration, and is UTF-8 where none of them tells it (XML 1.0,
/// appendix F). Nothing for an encoding that is not known or not the one declared, and for bytes
/// that stand for no character in it; but UTF-8 is left to the parser to judge.
[[nodiscard]] std::optional<std::string> utf8OfXmlFile(std::string_view bytes);

} // namespace tovik::config
