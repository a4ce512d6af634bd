// SPDX-License-Identifier: GPL-3.0-or-later
// What the text of a setting stands for. Any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace tovik::config {

/// A whole number, halves rounded to even. Raises 13 for a text that is no number, 6 for one that
/// does not fit 16 bits.
[[nodiscard]] std::int16_t settingToInt16(std::string_view text);

/// True when the number equals 1. Raises 13 for a text that is no number.
[[nodiscard]] bool settingToFlag(std::string_view text);

/// How a flag is written.
[[nodiscard]] constexpr std::string_view flagText(bool flag) {
    return flag ? "1" : "0";
}

} // namespace tovik::config
