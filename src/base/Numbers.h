// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions between kinds of numbers that raise a run-time error where the value does not fit.
// Any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace tovik::base {

/// Rounds halves to the even neighbour. Raises Overflow outside the range of 16 bits or for NaN.
[[nodiscard]] std::int16_t toInt16(double value);

/// Rounds halves to the even neighbour. Raises Overflow outside the range of 32 bits or for NaN.
[[nodiscard]] std::int32_t toInt32(double value);

/// The number that the whole text tells: blanks around it, a sign, digits with ".", an exponent.
/// The locale plays no part. Raises TypeMismatch for any other text (also the empty one) and
/// Overflow for a number too big; one too small is 0.
[[nodiscard]] double textToNumber(std::string_view text);

/// Raises Overflow for 0/0 and for a quotient too big, DivisionByZero for any other x/0.
[[nodiscard]] double divide(double dividend, double divisor);

} // namespace tovik::base
