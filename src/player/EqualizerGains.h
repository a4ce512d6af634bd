// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer's curve as it is stored: gains in decibels, 1.2 for a step of a slider. What
// sounds is another scale, see `Equalizer`. Any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tovik::player {

inline constexpr std::int32_t kSliderTop = 0;
inline constexpr std::int32_t kSliderMiddle = 10;
inline constexpr std::int32_t kSliderBottom = 20;

/// What a step of a slider is stored as, in dB.
inline constexpr double kStoredStep = 1.2;

/// The stored gain of a slider, such as "8.4" for the value 3: from "12" at the top to "-12". To
/// the sixth digit behind the point.
[[nodiscard]] std::string gainText(double slider);

/// The slider of a stored gain, halves to even. Gains of more than 12 dB give values outside the
/// slider. Raises 13 for a text that is no number and 6 for one that does not fit 16 bits.
///
/// A deliberate oddity: the gain is read as a whole number first, so "8.4" counts as 8 and what a
/// user wrote behind the point is lost. All values that a slider can have come back the same.
[[nodiscard]] std::int32_t sliderOfGain(std::string_view gain);

/// The same between two values of the slider, with the fraction of the gain. Raises 13 for a text
/// that is no number.
[[nodiscard]] double exactSliderOfGain(std::string_view gain);

/// The stored gains of sliders, joined with "/".
[[nodiscard]] std::string curveText(std::span<const double> sliders);

} // namespace tovik::player
