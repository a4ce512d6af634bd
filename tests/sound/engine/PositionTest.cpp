// SPDX-License-Identifier: GPL-3.0-or-later
// Where a channel stands, in bytes of its 16-bit form.
#include "sound/engine/Buffers.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;

class PositionOfAll : public testing::TestWithParam<std::size_t> {};

std::int64_t bytesPerFrame(EngineRig& rig, Handle channel) {
    BASS_CHANNELINFO info;
    EXPECT_TRUE(rig.engine.BASS_ChannelGetInfo(channel, info));
    return static_cast<std::int64_t>(info.chans) * 2;
}

} // namespace

TEST_P(PositionOfAll, GrowsToTheLengthAndReachesItAtTheEndOnly) {
    for (const test::MediaFile& file : test::goodMedia()) {
        EngineRig rig({.blockFrames = GetParam()});
        const Handle channel = rig.play(file.name);
        std::int64_t last = 0;
        for (int step = 0; step < 10000; ++step) {
            rig.render(1537);
            const std::int64_t now = rig.engine.BASS_ChannelGetPosition(channel);
            const std::int64_t length = rig.length(channel);
            ASSERT_GE(now, last) << file.name;
            if (rig.engine.BASS_ChannelIsActive(channel) == Activity::stopped) {
                last = now;
                break;
            }
            ASSERT_GT(now, last) << file.name;
            ASSERT_LT(now, length) << file.name;
            last = now;
        }
        ASSERT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped) << file.name;
        EXPECT_EQ(last, rig.length(channel)) << file.name;
        if (file.frames > 0) {
            EXPECT_EQ(last, file.frames * bytesPerFrame(rig, channel)) << file.name;
        }
        rig.render(5000);
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), last) << file.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Blocks, PositionOfAll, testing::Values(64, 512, 1537));

TEST(Position, CountsEveryFrame) {
    EngineRig rig;
    const Handle stereo = rig.play("wav_s16_44100_stereo.wav");
    const Handle mono = rig.play("wav_s16_44100_mono.wav");
    const Handle other = rig.play("wav_s16_22050_mono.wav");
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(stereo), 0);
    rig.render(1000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(stereo), 4000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(mono), 2000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(other), 1000);
}

TEST(Position, OfAFileOfTheLowestRateReachesItsEnd) {
    constexpr std::size_t kSourceFrames = 5000; // five seconds of it
    const test::TemporaryFolder folder;
    test::writeWav(folder / "low.wav", test::sine(50.0, 0.5F, kSourceFrames, 1000), 1000);
    EngineRig rig;
    const Handle channel = rig.playStream(folder / "low.wav");
    const test::Stereo mix = rig.renderToEnd(channel);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), kSourceFrames * 4);
    EXPECT_NEAR(test::effectiveSize(test::cut(mix, 44'100, 4 * 44'100)), 0.354, 0.002);
}

TEST(Position, IsWhatIsHeardNotWhatIsMixed) {
    EngineRig rig({.latencyFrames = 3000});
    const Handle channel = rig.play("wav_s16_44100_stereo.wav");
    rig.render(2000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 0);
    rig.render(2000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 1000 * 4);
    rig.render(20000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 21000 * 4);
}

TEST(Position, ReachesTheEndWhenTheLastSampleIsHeard) {
    EngineRig rig({.blockFrames = 100, .latencyFrames = 3000});
    const Handle channel = rig.play("wav_s16_8000_mono.wav");
    const std::int64_t length = rig.length(channel);
    // 24137 frames at 8000 Hz are 133055 at 44100, the last block of 100 is the 1331st.
    rig.render(133100 + 2900);
    EXPECT_LT(rig.engine.BASS_ChannelGetPosition(channel), length);
    rig.render(100);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), length);
}

TEST(Position, AfterASeekIsThereAtOnceAndCountsOn) {
    EngineRig rig({.latencyFrames = 3000});
    const Handle channel = rig.play("wav_s16_44100_stereo.wav");
    rig.render(10000);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 200000));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 200000);
    rig.render(3000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 200000);
    rig.render(1000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 204000);
}

TEST(Position, DoesNotStepBackAfterAPause) {
    EngineRig rig({.latencyFrames = 3000});
    const Handle channel = rig.play("wav_s16_44100_stereo.wav");
    rig.render(20000);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    std::int64_t last = rig.engine.BASS_ChannelGetPosition(channel);
    for (int step = 0; step < 60; ++step) {
        if (step == 30) {
            EXPECT_EQ(last, 20220 * 4) << "the ramp of the pause belongs to it";
            ASSERT_TRUE(rig.engine.BASS_Start());
        }
        rig.render(500);
        const std::int64_t now = rig.engine.BASS_ChannelGetPosition(channel);
        EXPECT_GE(now, last);
        last = now;
    }
    EXPECT_EQ(last, (20220 + 15000 - 3000) * 4);
}

TEST(Position, OfAStoppedChannelIsItsBeginning) {
    EngineRig rig({.latencyFrames = 700});
    const Handle channel = rig.play("wav_s16_44100_stereo.wav");
    rig.render(20000);
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(channel));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 0);
    rig.render(20000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 0);
}

TEST(Position, SecondsAndBytes) {
    EngineRig rig;
    const Handle mono = rig.open("wav_s16_8000_mono.wav");
    const Handle stereo = rig.open("wav_s16_48000_stereo.wav");
    EXPECT_DOUBLE_EQ(rig.engine.BASS_ChannelBytes2Seconds(mono, 16000), 1.0);
    EXPECT_DOUBLE_EQ(rig.engine.BASS_ChannelBytes2Seconds(stereo, 96000), 0.5);
    EXPECT_EQ(rig.engine.BASS_ChannelSeconds2Bytes(mono, 1.5), 24000);
    EXPECT_EQ(rig.engine.BASS_ChannelSeconds2Bytes(stereo, 0.25), 48000);
    EXPECT_EQ(rig.engine.BASS_ChannelBytes2Seconds(mono, -1), 0.0);
    EXPECT_EQ(rig.engine.BASS_ChannelSeconds2Bytes(mono, -1.0), -1);
    EXPECT_EQ(rig.engine.BASS_ChannelSeconds2Bytes(mono, std::nan("")), -1);
    EXPECT_EQ(rig.engine.BASS_ChannelSeconds2Bytes(mono, 1e300), -1);
}

} // namespace tovik::sound
