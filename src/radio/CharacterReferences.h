// SPDX-License-Identifier: GPL-3.0-or-later
// References for characters, as some servers put them into titles: "&amp;", "&#1046;", "&#x416;".
// Pure; any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tovik::radio {

/// The text, which is UTF-8, with the characters in the place of their references: numbers, and the
/// five names that XML has. Whatever else begins with "&" stays.
[[nodiscard]] std::string withoutReferences(std::string_view text);

/// Where `wanted` stands first without being a part of such a reference; npos when it does not.
[[nodiscard]] std::size_t findBesideReferences(std::string_view text, char wanted);

} // namespace tovik::radio
