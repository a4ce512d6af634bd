// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Numbers.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace tovik::base {

namespace {

template <typename Integer>
Integer rounded(double value) {
    const double whole = std::nearbyint(value); // the default rounding mode: halves to even
    // Written so that NaN fails the test.
    if (!(whole >= std::numeric_limits<Integer>::min() &&
          whole <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(whole);
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Whether an unsigned decimal number that no double holds lies below 1 (and not far above it).
bool isBelowOne(std::string_view text) {
    const auto exponentAt = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, exponentAt);
    const auto first = std::min(mantissa.find_first_not_of("0."), mantissa.size());
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const double magnitude = static_cast<double>(point) - static_cast<double>(first);
    double exponent = 0;
    if (exponentAt < text.size()) {
        std::string_view digits = text.substr(exponentAt + 1);
        const bool negative = digits.front() == '-';
        if (digits.front() == '-' || digits.front() == '+') {
            digits.remove_prefix(1);
        }
        for (const char digit : digits) {
            exponent = exponent * 10 + (digit - '0');
        }
        exponent = negative ? -exponent : exponent;
    }
    return magnitude + exponent < 0;
}

} // namespace

std::int16_t toInt16(double value) {
    return rounded<std::int16_t>(value);
}

std::int32_t toInt32(double value) {
    return rounded<std::int32_t>(value);
}

double textToNumber(std::string_view text) {
    std::string_view number = trimmed(text);
    const bool negative = number.starts_with('-');
    if (negative || number.starts_with('+')) {
        number.remove_prefix(1);
    }
    // The conversion below also knows names such as "inf", which are no numbers here.
    if (number.empty() || !(isDigit(number.front()) || number.front() == '.')) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    double value = 0;
    const char* const end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, value);
    if (result.ec == std::errc::invalid_argument || result.ptr != end) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    if (result.ec == std::errc::result_out_of_range) {
        if (!isBelowOne(number)) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        value = 0;
    }
    return negative ? -value : value;
}

double divide(double dividend, double divisor) {
    if (divisor == 0) {
        throw RuntimeError(dividend == 0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
    }
    const double quotient = dividend / divisor;
    if (!std::isfinite(quotient)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return quotient;
}

} // namespace tovik::base
