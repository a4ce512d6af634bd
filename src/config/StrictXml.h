// SPDX-License-Identifier: GPL-3.0-or-later
// What is taken for an XML document at all, decided by a strict parser. Any thread.
#pragma once

#include <cstddef>
#include <string_view>

namespace tovik::config {

/// No settings file comes near these; beyond them a document is not looked at.
inline constexpr std::size_t kMostXmlBytes = std::size_t{64} << 20;
inline constexpr int kMostXmlLevels = 1000;

/// Whether UTF-8 text is a well-formed document (XML 1.0) within these bounds. The encoding that
/// it declares is not looked at. A document that declares entities or has an external subset is
/// refused, too: nothing here could write it back as it was.
[[nodiscard]] bool isStrictXml(std::string_view utf8);

} // namespace tovik::config
