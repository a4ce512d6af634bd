// SPDX-License-Identifier: GPL-3.0-or-later
// How a gain is told. Any thread.
#pragma once

#include <cmath>
#include <string>

namespace tovik::window {

/// "+3 dB", "0 dB", "-12 dB": to the nearest whole one.
[[nodiscard]] inline std::string decibels(double value) {
    const long whole = std::lround(value);
    return (whole > 0 ? "+" : "") + std::to_string(whole) + " dB";
}

} // namespace tovik::window
