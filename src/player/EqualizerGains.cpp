// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerGains.h"

#include "base/Numbers.h"
#include "config/SettingText.h"

#include <array>
#include <charconv>

namespace tovik::player {

namespace {

constexpr double kStoredRange = 12; ///< dB, in
constexpr double kSliderSteps = 10; ///< steps from the middle

} // namespace

std::string gainText(std::int32_t slider) {
    const double gain = (kSliderMiddle - slider) * kStoredRange / kSliderSteps;
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), gain).ptr;
    return {digits.data(), end};
}

std::int32_t sliderOfGain(std::string_view gain) {
    return base::toInt32(kSliderMiddle -
                         config::settingToInt16(gain) * kSliderSteps / kStoredRange);
}

std::string curveText(std::span<const std::int32_t> sliders) {
    std::string text;
    for (const std::int32_t slider : sliders) {
        text.append(text.empty() ? "" : "/").append(gainText(slider));
    }
    return text;
}

} // namespace tovik::player
