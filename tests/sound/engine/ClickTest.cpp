// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing that is done to a sound makes a click: the step from sample to sample stays as small as
// the sound's own and that of a ramp of 5 ms.
#include "sound/engine/Buffers.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::Stereo;

constexpr float kAmplitude = 0.5F;
constexpr double kHertz = 1000.0;
/// The sine's own steps, and a ramp of 220 frames over its whole height.
const float kSineStep = kAmplitude * static_cast<float>(2.0 * std::numbers::pi * kHertz / 44100.0);
constexpr float kRampStep = kAmplitude / 220.0F;
constexpr float kSlack = 1.02F;

class Click : public testing::TestWithParam<std::size_t> {
protected:
    Click() { test::writeWav(path_, test::sine(kHertz, kAmplitude, 200000)); }

    /// Plays, does `action` at a few places of the sine's period, and looks at the largest step.
    void expectSmooth(const std::function<void(Handle)>& action, float gain = 1.0F,
                      float ramps = 1.0F) {
        const float bound = kSlack * gain * (kSineStep + ramps * kRampStep);
        for (const std::size_t place : {20011U, 20022U, 20033U, 20044U}) {
            EngineRig rig({.blockFrames = GetParam()});
            rig_ = &rig;
            const Handle channel = rig.playStream(path_);
            effect_ = rig.engine.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
            mix_.clear();
            step(place);
            action(channel);
            step(6000);
            EXPECT_LE(test::largestStep(mix_, {}), bound) << "at " << place;
            EXPECT_GT(test::effectiveSize(mix_), 0.1);
        }
    }

    SoundLibrary& engine() { return rig_->engine; }

    /// Renders on; returns what came.
    Stereo step(std::size_t frames) {
        Stereo part = rig_->render(frames);
        mix_.insert(mix_.end(), part.begin(), part.end());
        return part;
    }

    Handle effect_ = kNoHandle;

private:
    test::TemporaryFolder folder_;

protected:
    const std::string path_ = folder_ / "sine.wav";

private:
    EngineRig* rig_ = nullptr;
    Stereo mix_;
};

} // namespace

TEST_P(Click, NoneAtAllWithoutAnAction) {
    expectSmooth([](Handle) {}, 1.0F, 0.0F);
}

TEST_P(Click, NoneAtAPause) {
    expectSmooth([this](Handle) { engine().BASS_Pause(); });
}

TEST_P(Click, NoneAtAResume) {
    expectSmooth([this](Handle) {
        engine().BASS_Pause();
        EXPECT_FALSE(test::silent(step(200)));
        step(1000);
        EXPECT_TRUE(test::silent(step(1000)));
        engine().BASS_Start();
    });
}

TEST_P(Click, NoneWhenResumedInTheMiddleOfThePauseRamp) {
    expectSmooth([this](Handle) {
        engine().BASS_Pause();
        engine().BASS_Start();
    });
}

TEST_P(Click, NoneAtASeek) {
    expectSmooth([this](Handle channel) { engine().BASS_ChannelSetPosition(channel, 4 * 50017); });
}

// At these places everything decoded has just been played: what fades away has to be decoded first.
TEST_P(Click, NoneWhereNothingLiesAhead) {
    const std::vector<std::function<void(SoundLibrary&, Handle)>> actions = {
        [](SoundLibrary& e, Handle channel) { e.BASS_ChannelSetPosition(channel, 4 * 50017); },
        [](SoundLibrary& e, Handle channel) { e.BASS_ChannelStop(channel); },
        [](SoundLibrary& e, Handle channel) { e.BASS_StreamFree(channel); }};
    for (const std::size_t place : {4096U, 6144U, 8192U}) {
        for (const auto& action : actions) {
            EngineRig rig({.blockFrames = GetParam()});
            const Handle channel = rig.playStream(path_);
            Stereo mix = rig.render(place);
            action(rig.engine, channel);
            const Stereo after = rig.render(3000);
            mix.insert(mix.end(), after.begin(), after.end());
            EXPECT_LE(test::largestStep(mix, {}), kSlack * (kSineStep + kRampStep)) << place;
            EXPECT_FALSE(test::silent(test::cut(after, 0, 200))) << place;
        }
    }
}

TEST_P(Click, NoneAtManySeeksInARow) {
    expectSmooth([this](Handle channel) {
        for (const std::int64_t frame : {50017, 3, 70031, 10}) {
            engine().BASS_ChannelSetPosition(channel, 4 * frame);
        }
    });
}

TEST_P(Click, NoneAtAStop) {
    expectSmooth([this](Handle channel) { engine().BASS_ChannelStop(channel); });
}

TEST_P(Click, NoneAtAStopAndAStartAtOnce) {
    expectSmooth(
        [this](Handle channel) {
            engine().BASS_ChannelStop(channel);
            engine().BASS_StreamPlay(channel, false, 0);
        },
        1.0F, 2.0F);
}

TEST_P(Click, NoneAtAFree) {
    expectSmooth([this](Handle channel) { engine().BASS_StreamFree(channel); });
}

TEST_P(Click, NoneWhenTheLibraryIsFreed) {
    expectSmooth([this](Handle) { engine().BASS_Free(); });
}

TEST_P(Click, NoneAtTheStopOfTheOutput) {
    expectSmooth([this](Handle) { engine().BASS_Stop(); }, 1.0F, 2.0F);
}

TEST_P(Click, NoneAtAChangeOfVolumeOrPan) {
    expectSmooth([this](Handle channel) { engine().BASS_ChannelSetAttributes(channel, -1, 0, 0); });
    expectSmooth(
        [this](Handle channel) { engine().BASS_ChannelSetAttributes(channel, -1, 100, 100); });
    expectSmooth(
        [this](Handle channel) { engine().BASS_ChannelSlideAttributes(channel, -1, 0, -101, 0); });
}

TEST_P(Click, NoneAtAChangeOfTheMasterVolume) {
    expectSmooth([this](Handle) { engine().BASS_SetVolume(0); });
}

TEST_P(Click, NoneAtAChangeOfAFilter) {
    // Half again as loud: the sine's own steps grow with it.
    const float gain = 1.5F;
    expectSmooth(
        [this](Handle) {
            engine().BASS_FXSetParameters(effect_, {1000.0F, 15.0F, 3.5F});
        },
        gain);
    expectSmooth(
        [this](Handle) {
            engine().BASS_FXSetParameters(effect_, {1000.0F, 15.0F, 3.5F});
            step(3000);
            engine().BASS_FXSetParameters(effect_, {125.0F, 15.0F, -3.5F});
            step(3000);
            engine().BASS_FXSetParameters(effect_, {125.0F, 15.0F, 0.0F});
        },
        gain);
}

TEST_P(Click, NoneAtAStartInTheMiddle) {
    for (const std::int64_t place : {10011, 10022, 10033}) {
        EngineRig rig({.blockFrames = GetParam()});
        const Handle channel = rig.openStream(path_);
        ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 4 * place));
        ASSERT_TRUE(rig.start(channel));
        const Stereo mix = rig.render(3000);
        EXPECT_LE(test::largestStep(mix, {}), kSlack * (kSineStep + kRampStep)) << place;
        EXPECT_GT(test::effectiveSize(mix), 0.3);
    }
}

TEST_P(Click, NoneWhenALostDeviceComesBack) {
    EngineRig rig({.blockFrames = GetParam()});
    rig.playStream(path_);
    rig.render(20011);
    rig.device.vanish();
    ASSERT_TRUE(eventually([&] { return rig.observer.lost == 1; }));
    rig.device.arrive();
    ASSERT_TRUE(eventually([&] { return rig.observer.back == 1; }));
    const Stereo mix = rig.render(3000);
    EXPECT_LE(test::largestStep(mix, {}), kSlack * (kSineStep + kRampStep));
    EXPECT_GT(test::effectiveSize(mix), 0.3);
}

INSTANTIATE_TEST_SUITE_P(Blocks, Click, testing::Values(64, 512, 1024));

} // namespace tovik::sound
