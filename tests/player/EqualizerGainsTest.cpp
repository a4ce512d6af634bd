// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerGains.h"

#include "base/RuntimeError.h"

#include <array>
#include <gtest/gtest.h>

namespace tovik::player {
namespace {

constexpr std::array kStored = {"12",   "10.8", "9.6",  "8.4",  "7.2",  "6",     "4.8",
                                "3.6",  "2.4",  "1.2",  "0",    "-1.2", "-2.4",  "-3.6",
                                "-4.8", "-6",   "-7.2", "-8.4", "-9.6", "-10.8", "-12"};

TEST(EqualizerGains, eachStepIsStoredAsItsDecibels) {
    for (std::int32_t slider = 0; slider <= 20; ++slider) {
        EXPECT_EQ(gainText(slider), kStored.at(static_cast<std::size_t>(slider)));
    }
}

TEST(EqualizerGains, allTwentyOneValuesComeBack) {
    for (std::int32_t slider = 0; slider <= 20; ++slider) {
        EXPECT_EQ(sliderOfGain(gainText(slider)), slider) << gainText(slider);
    }
}

TEST(EqualizerGains, wholeGainsFindTheNearestStepHalvesToEven) {
    constexpr std::array kUp = {10, 9, 8, 8, 7, 6, 5, 4, 3, 2, 2, 1, 0};
    for (std::int32_t gain = 0; gain <= 12; ++gain) {
        const std::int32_t slider = kUp.at(static_cast<std::size_t>(gain));
        EXPECT_EQ(sliderOfGain(std::to_string(gain)), slider) << gain;
        // 3 and 9 lie between two steps: 7.5 goes to 8 and 12.5 to 12.
        EXPECT_EQ(sliderOfGain(std::to_string(-gain)), 20 - slider) << -gain;
    }
}

TEST(EqualizerGains, fractionsAreLost) {
    EXPECT_EQ(sliderOfGain("8.4"), 3);
    EXPECT_EQ(sliderOfGain("0.5"), 10);
    EXPECT_EQ(sliderOfGain("0.6"), 9);
    EXPECT_EQ(sliderOfGain("-0.6"), 11);
    EXPECT_EQ(sliderOfGain(" 2.5 "), 8);
    EXPECT_EQ(sliderOfGain("3.5"), 7);
}

TEST(EqualizerGains, gainsBeyondTheSliderGoBeyondIt) {
    EXPECT_EQ(sliderOfGain("13"), -1);
    EXPECT_EQ(sliderOfGain("-13"), 21);
    EXPECT_EQ(sliderOfGain("12.4"), 0);
    EXPECT_EQ(sliderOfGain("32767"), -27296);
    EXPECT_EQ(sliderOfGain("-32768"), 27317);
}

int numberOf(const char* text) {
    try {
        static_cast<void>(sliderOfGain(text));
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(EqualizerGains, whatIsNoGainIsAnError) {
    EXPECT_EQ(numberOf(""), 13);
    EXPECT_EQ(numberOf("loud"), 13);
    EXPECT_EQ(numberOf("1,2"), 13);
    EXPECT_EQ(numberOf("32768"), 6);
}

TEST(EqualizerGains, aCurveIsTheGainsWithSlashes) {
    EXPECT_EQ(curveText(std::array{0.0, 9.0, 13.0, 20.0}), "12/1.2/-3.6/-12");
    EXPECT_EQ(curveText({}), "");
}

} // namespace
} // namespace tovik::player
