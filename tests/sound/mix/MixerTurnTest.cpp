// SPDX-License-Identifier: GPL-3.0-or-later
// A callback that meets another thread at the mixer: it fades away and comes back, without a click.
#include "sound/mix/Mixer.h"

#include "sound/mix/Signals.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numbers>
#include <span>
#include <vector>

namespace tovik::sound {
namespace {

constexpr double kHertz = 300.0;
constexpr double kAmplitude = 0.5;
constexpr float kSineStep =
    static_cast<float>(2.0 * std::numbers::pi * kHertz / 44100.0 * kAmplitude);
constexpr float kRampStep = static_cast<float>(kAmplitude) / kRampFrames;
constexpr float kSlack = 1.02F;

class MixerTurn : public ::testing::TestWithParam<std::size_t> {
protected:
    MixerTurn() {
        feed_.write(sound_);
        feed_.complete();
        EXPECT_TRUE(mixer_.post(command::AddVoice{&voice_}));
        EXPECT_TRUE(mixer_.post(command::StartVoice{&voice_}));
    }

    /// One block of the device, appended to what it has got so far.
    std::span<float> mixBlock() {
        const std::size_t before = got_.size();
        got_.resize(before + 2 * GetParam());
        const std::span<float> block = std::span(got_).subspan(before);
        mixer_.mix(block);
        return block;
    }

    void mixFrames(std::size_t frames) {
        for (std::size_t done = 0; done < frames; done += GetParam()) {
            mixBlock();
        }
    }

    /// Blocks for as long as another thread is the mixer.
    void missFrames(std::size_t frames) {
        const Mixer::Turn other = mixer_.takeTurn();
        ASSERT_TRUE(other.mine());
        mixFrames(frames);
    }

    std::vector<float> sound_ = testing::stereoSine(kHertz, kAmplitude, 30'000);
    Feed feed_{0, 32'768};
    Voice voice_{feed_};
    Mixer mixer_;
    std::vector<float> got_;
};

TEST_P(MixerTurn, AMissedOneFadesToSilence) {
    mixFrames(5003);
    ASSERT_NE(got_.back(), 0.0F);
    missFrames(1024);
    EXPECT_EQ(got_.back(), 0.0F);
    EXPECT_LE(testing::largestStep(got_), kSlack * (kSineStep + kRampStep));
}

TEST_P(MixerTurn, NoStepIsAboveARampsAtAnyLengthOfTheHole) {
    for (const std::size_t hole : {1U, 64U, 200U, 2048U, 1U, 1U, 500U}) {
        mixFrames(1777);
        missFrames(hole);
    }
    mixFrames(1777);
    EXPECT_LE(testing::largestStep(got_), kSlack * (kSineStep + kRampStep));
}

TEST_P(MixerTurn, TheSoundGoesOnWhereItStood) {
    mixFrames(5003);
    const std::size_t before = got_.size();
    missFrames(300);
    const std::size_t hole = got_.size() - before;
    mixFrames(3000);
    const std::size_t settled = before + hole + 2 * kRampFrames;
    const std::span<const float> after = std::span<const float>(got_).subspan(settled);
    ASSERT_GT(after.size(), 1000U);
    EXPECT_TRUE(std::ranges::equal(after, std::span(sound_).subspan(settled - hole, after.size())));
}

TEST_P(MixerTurn, TheClockCountsWhatTheDeviceGot) {
    mixFrames(3000);
    missFrames(700);
    mixFrames(100);
    EXPECT_EQ(mixer_.clock(), static_cast<std::int64_t>(got_.size() / 2));
}

TEST_P(MixerTurn, WhatWasCarriedOutMeanwhileIsNoClickEither) {
    mixFrames(5003);
    missFrames(1);
    ASSERT_TRUE(mixer_.post(command::StopVoice{&voice_}));
    mixer_.drain(); // at once, without a ramp of its own
    mixFrames(2000);
    EXPECT_LE(testing::largestStep(got_), kSlack * (kSineStep + kRampStep));
    EXPECT_EQ(got_.back(), 0.0F);
}

TEST_P(MixerTurn, ATrackThatBeginsBehindAHoleBeginsWhole) {
    missFrames(300);
    const std::size_t hole = got_.size();
    EXPECT_TRUE(std::ranges::all_of(got_, [](float sample) { return sample == 0.0F; }));
    mixFrames(500);
    const std::span<const float> after = std::span<const float>(got_).subspan(hole);
    EXPECT_TRUE(std::ranges::equal(after, std::span(sound_).first(after.size())));
}

INSTANTIATE_TEST_SUITE_P(Blocks, MixerTurn, ::testing::Values(64, 512, 1024));

} // namespace
} // namespace tovik::sound
