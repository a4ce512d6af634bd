// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard of the equalizer: its sliders over the real engine.
#include "config/ErrHandler.h"
#include "player/Equalizer.h"
#include "sound/engine/Buffers.h"
#include "sound/mix/PeakingFilter.h"
#include "support/host/TestHost.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace tovik::sound {

namespace {

constexpr std::array kCentres = {60.0,   170.0,  310.0,   600.0,   1000.0,
                                 3000.0, 6000.0, 12000.0, 14000.0, 16000.0};
constexpr double kBandwidth = 15.0;
constexpr double kRate = 44100.0;
constexpr float kAmplitude = 0.05F;

class EqualizerSound : public testing::Test {
protected:
    /// Starts a sine as the player starts a track.
    void start(double hertz, float amplitude = kAmplitude) {
        test::writeWav(path_, test::sine(hertz, amplitude, 300000));
        state_.PrimaryChannel = rig_.openStream(path_);
        state_.CrossfadeLeg = 2;
        equalizer_.Set_EQ();
        ASSERT_TRUE(rig_.start(state_.PrimaryChannel));
    }

    void stop() {
        ASSERT_TRUE(rig_.engine.BASS_StreamFree(state_.PrimaryChannel));
        rig_.render(2048);
    }

    /// In dB, once the filters have settled.
    double measured() {
        rig_.render(22050);
        return 20.0 * std::log10(test::effectiveSize(rig_.render(44100)) /
                                 (static_cast<double>(kAmplitude) / std::sqrt(2.0)));
    }

    /// What ten bands of that gain make of a sine.
    static double allBands(double gain, double hertz) {
        double sum = 0.0;
        for (const double centre : kCentres) {
            sum += gainDbAt(peakingFilter(centre, kBandwidth, gain, kRate), hertz, kRate);
        }
        return sum;
    }

    tovik::test::TestHost host_;
    config::ErrHandler log_{host_.paths, host_.clock, host_.operatingSystem};
    config::Errors errors_{log_, host_.dialogs};
    player::PlayerState state_;
    test::EngineRig rig_;
    config::clsXML xml_;
    config::Settings settings_{host_.paths, xml_};
    playlist::stdSS list_;
    playlist::ListMirror mirror_{list_};
    player::Screen screen_;
    player::TrackNews news_;
    player::Core core_{.state = state_,
                       .sound = rig_.engine,
                       .settings = settings_,
                       .errors = errors_,
                       .lists = {.stdSS = list_, .List1 = mirror_},
                       .timers = host_.clock,
                       .screen = screen_,
                       .news = news_};
    player::Equalizer equalizer_{core_, host_.dialogs};
    const std::string path_ = host_.folder / "sine.wav";
};

} // namespace

TEST_F(EqualizerSound, EachSliderAloneGivesADecibelAStep) {
    for (std::size_t band = 0; band < kCentres.size(); ++band) {
        start(kCentres.at(band));
        for (const std::int32_t value : {0, 7, 20}) {
            equalizer_.eq_sld(band, value);
            EXPECT_NEAR(measured(), 10 - value, 0.2) << kCentres.at(band) << " Hz";
        }
        equalizer_.eq_sld(band, 10);
        stop();
    }
}

TEST_F(EqualizerSound, TheMasterLiftsAllBands) {
    start(1000.0);
    equalizer_.eq_sld(player::Equalizer::kMaster, 7);
    EXPECT_NEAR(measured(), allBands(3.0, 1000.0), 0.2);
}

TEST_F(EqualizerSound, SwitchedOffEveryBandIsLiftedByFive) {
    start(1000.0);
    EXPECT_NEAR(measured(), 0.0, 0.01);
    equalizer_.EQ_on_Click();
    EXPECT_NEAR(measured(), allBands(5.0, 1000.0), 0.2);
    equalizer_.EQ_off_Click();
    EXPECT_NEAR(measured(), 0.0, 0.01);
}

TEST_F(EqualizerSound, ANewTrackIsHeardWithTheCurveAlsoWhenSwitchedOff) {
    equalizer_.eq_sld(4, 4);
    equalizer_.EQ_on_Click();
    start(1000.0);
    EXPECT_NEAR(measured(), 6.0, 0.2);
}

TEST_F(EqualizerSound, SlidersInTheMiddleLeaveTheSoundAsItIs) {
    start(1000.0, 0.99F);
    test::expectSame(rig_.render(40000), test::sine(1000.0, 0.99F, 40000));
}

TEST_F(EqualizerSound, SwitchingWhileItPlaysMakesNoClick) {
    constexpr double kHertz = 1000.0;
    start(kHertz);
    const auto gain = static_cast<float>(std::pow(10.0, allBands(5.0, kHertz) / 20.0));
    const float sineStep = kAmplitude * static_cast<float>(2.0 * std::numbers::pi * kHertz / kRate);
    // The ramps of ten bands, and the sine at its loudest.
    const float bound = 1.02F * gain * (sineStep + 2.0F * kAmplitude / 220.0F);
    test::Stereo mix = rig_.render(20011);
    for (int turn = 0; turn < 6; ++turn) {
        equalizer_.flip();
        const test::Stereo part = rig_.render(5011);
        mix.insert(mix.end(), part.begin(), part.end());
    }
    EXPECT_LE(test::largestStep(mix, {}), bound);
    EXPECT_GT(test::largestStep(mix, {}), 0.9F * gain * sineStep) << "it was switched";
}

TEST_F(EqualizerSound, WhatIsLiftedAboveFullScaleIsHeldBelowIt) {
    start(1000.0, 0.9F);
    equalizer_.eq_sld(4, 0);
    rig_.render(20000);
    for (const float sample : rig_.render(20000)) {
        ASSERT_LE(std::abs(sample), 1.0F);
    }
}

} // namespace tovik::sound
