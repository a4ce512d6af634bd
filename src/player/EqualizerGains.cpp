// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerGains.h"

#include "base/Numbers.h"
#include "config/SettingText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tovik::player {

namespace {

constexpr double kStoredRange = 12; ///< dB, in
constexpr double kSliderSteps = 10; ///< steps from the middle
constexpr double kMillions = 1e6;

static_assert(kStoredRange == kSliderSteps * kStoredStep);

} // namespace

std::string gainText(double slider) {
    const double gain =
        std::round((kSliderMiddle - slider) * kStoredRange / kSliderSteps * kMillions) / kMillions;
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), gain).ptr;
    return {digits.data(), end};
}

std::int32_t sliderOfGain(std::string_view gain) {
    return base::toInt32(kSliderMiddle -
                         config::settingToInt16(gain) * kSliderSteps / kStoredRange);
}

double exactSliderOfGain(std::string_view gain) {
    return kSliderMiddle - base::textToNumber(gain) * kSliderSteps / kStoredRange;
}

std::string curveText(std::span<const double> sliders) {
    std::string text;
    for (const double slider : sliders) {
        text.append(text.empty() ? "" : "/").append(gainText(slider));
    }
    return text;
}

} // namespace tovik::player
