// SPDX-License-Identifier: GPL-3.0-or-later
// A length that is only estimated is never shown as one that can be reached.
#include "sound/engine/Buffers.h"
#include "sound/engine/FakeDecoder.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::FakeFile;
using test::FakeRig;

constexpr std::int64_t kSecond = 44100;

} // namespace

TEST(Estimate, StaysFivePercentAndTwoSecondsAheadUntilTheScanIsDone) {
    FakeFile file;
    file.realFrames = 100 * kSecond;
    file.estimate = 10 * kSecond;
    // With a thread: offline the length would be waited for.
    FakeRig rig(FeederMode::ownThread);
    const Handle channel = rig.add(file);
    ASSERT_TRUE(rig.streams.BASS_StreamPlay(channel, false, 0));
    EXPECT_EQ(rig.streams.BASS_StreamGetLength(channel), 10 * kSecond * 4);
    std::int64_t position = 0;
    while (position < 70 * kSecond * 4) {
        const std::int64_t length = rig.streams.BASS_StreamGetLength(channel);
        EXPECT_GE(length, position + 2 * kSecond * 4);
        EXPECT_GE(static_cast<double>(length), 1.05 * static_cast<double>(position));
        EXPECT_GE(length, 10 * kSecond * 4);
        // Nobody gets beyond what is shown in one step, but step by step one does.
        EXPECT_FALSE(rig.channels.BASS_ChannelSetPosition(channel, length + 4));
        ASSERT_TRUE(rig.channels.BASS_ChannelSetPosition(channel, length));
        EXPECT_EQ(rig.channels.BASS_ChannelGetPosition(channel), length);
        position = length;
    }
    file.scanMayEnd = true;
    rig.core.channels().find(channel)->source()->scan(std::chrono::milliseconds(1));
    EXPECT_EQ(rig.streams.BASS_StreamGetLength(channel), 100 * kSecond * 4);
}

TEST(Estimate, ALengthThatWasToldTooShortKeepsOutOfReachToo) {
    FakeFile file;
    file.realFrames = 20 * kSecond;
    file.claimed = 3 * kSecond;
    FakeRig rig(FeederMode::inCaller);
    const Handle channel = rig.add(file);
    ASSERT_TRUE(rig.streams.BASS_StreamPlay(channel, false, 0));
    for (std::int64_t played = 0; played + 4410 < file.realFrames; played += 4410) {
        rig.render(4410);
        ASSERT_LT(rig.channels.BASS_ChannelGetPosition(channel),
                  rig.streams.BASS_StreamGetLength(channel));
    }
    rig.render(4410);
    rig.render(512);
    EXPECT_EQ(rig.channels.BASS_ChannelGetPosition(channel), file.realFrames * 4);
    EXPECT_EQ(rig.streams.BASS_StreamGetLength(channel), file.realFrames * 4);
}

TEST(Estimate, IsReplacedByTheFeederMeanwhile) {
    FakeFile file;
    file.realFrames = 3 * kSecond;
    file.estimate = 10 * kSecond;
    FakeRig rig(FeederMode::ownThread);
    const Handle channel = rig.add(file);
    EXPECT_EQ(rig.streams.BASS_StreamGetLength(channel), 10 * kSecond * 4);
    file.scanMayEnd = true;
    EXPECT_TRUE(
        eventually([&] { return rig.streams.BASS_StreamGetLength(channel) == 3 * kSecond * 4; }));
}

TEST(Estimate, OfADecodingChannelIsReplacedMeanwhileToo) {
    FakeFile file;
    file.realFrames = 3 * kSecond;
    file.estimate = 10 * kSecond;
    FakeRig rig(FeederMode::ownThread);
    const Handle channel = rig.add(file, BASS_STREAM_DECODE);
    EXPECT_EQ(rig.streams.BASS_StreamGetLength(channel), 10 * kSecond * 4);
    file.scanMayEnd = true;
    EXPECT_TRUE(
        eventually([&] { return rig.streams.BASS_StreamGetLength(channel) == 3 * kSecond * 4; }));
}

TEST(Estimate, IsReplacedAtTheEndAtTheLatest) {
    FakeFile file;
    file.realFrames = 20000;
    file.estimate = 10 * kSecond;
    FakeRig rig(FeederMode::inCaller);
    const Handle channel = rig.add(file);
    ASSERT_TRUE(rig.streams.BASS_StreamPlay(channel, false, 0));
    rig.render(10000);
    EXPECT_EQ(rig.channels.BASS_ChannelGetPosition(channel), 40000);
    rig.render(12000);
    EXPECT_EQ(rig.channels.BASS_ChannelGetPosition(channel), 80000);
    EXPECT_EQ(rig.streams.BASS_StreamGetLength(channel), 80000);
    file.scanMayEnd = true;
}

TEST(Estimate, IsNotSeenOfflineBecauseTheScanComesFirst) {
    test::EngineRig rig;
    const Handle channel = rig.open("mp3_vbr_no_xing.mp3");
    const std::int64_t told = rig.length(channel);
    ASSERT_TRUE(rig.start(channel));
    rig.renderToEnd(channel);
    EXPECT_EQ(rig.length(channel), told);
}

TEST(Estimate, OfAFileThatIsLongerThanItsHeadSaysNeverEndsEarly) {
    FakeFile file;
    file.realFrames = 5 * kSecond;
    file.estimate = 1 * kSecond;
    FakeRig rig(FeederMode::inCaller);
    const Handle channel = rig.add(file);
    ASSERT_TRUE(rig.streams.BASS_StreamPlay(channel, false, 0));
    for (int step = 0; step < 100; ++step) {
        rig.render(2205);
        const std::int64_t position = rig.channels.BASS_ChannelGetPosition(channel);
        const std::int64_t length = rig.streams.BASS_StreamGetLength(channel);
        if (rig.channels.BASS_ChannelIsActive(channel) == Activity::stopped) {
            EXPECT_EQ(position, 5 * kSecond * 4);
            EXPECT_EQ(position, length);
            return;
        }
        ASSERT_LT(position, length);
    }
    FAIL() << "it does not end";
}

} // namespace tovik::sound
