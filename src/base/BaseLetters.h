// SPDX-License-Identifier: GPL-3.0-or-later
// Letters with marks and what people write without them. Any thread.
#pragma once

#include <string_view>

namespace tovik::base {

struct BaseLetter {
    std::u32string_view base;    ///< small letters; empty: nothing
    std::u32string_view letters; ///< that stand for it, capitals as well
};

/// The row of a letter; null for a character that has no base letter.
[[nodiscard]] const BaseLetter* baseLetterOf(char32_t character);

/// A mark that stands behind its letter instead of in one character with it.
[[nodiscard]] constexpr bool isMark(char32_t character) {
    return character >= U'\u0300' && character <= U'\u036F';
}

} // namespace tovik::base
