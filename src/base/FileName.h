// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of others as names of files. Pure; any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tovik::base {

/// The longest name that file systems take, in bytes.
inline constexpr std::size_t kMostNameBytes = 255;

/// The text as a name that every system takes and that stays in its folder: UTF-8, "-" for / \ : |,
/// without ? * < > " and control characters, without dots and blanks at both ends, and with room
/// for an ending of `ending` bytes and a number within `kMostNameBytes`. Empty where nothing is
/// left.
[[nodiscard]] std::string cleanFileName(std::string_view text, std::size_t ending);

/// The name of the file number `number` with that name: the name alone for 1, else with the number
/// in brackets behind it; then the ending.
[[nodiscard]] std::string numberedFileName(std::string_view name, int number,
                                           std::string_view ending);

} // namespace tovik::base
