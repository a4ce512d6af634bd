// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks that the caller reads, with verification and ahead of him.
#include "sound/cd/DiscRig.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tovik::sound {

using test::DiscRig;
using test::kRip;
using test::sectorsOf;
using test::takeAll;
using test::tocOf;
using namespace std::chrono_literals;

TEST(RipRead, GivesEveryByteOfTheTrack) {
    for (const std::uint32_t block : {20000U, 262144U}) {
        DiscRig rig(tocOf({40, 900}));
        const Handle track = rig.engine.BASS_CD_StreamCreate(0, 1, kRip);
        ASSERT_NE(track, kNoHandle);
        EXPECT_EQ(rig.engine.BASS_StreamGetLength(track), 900 * 2352);
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(track), 0);
        EXPECT_EQ(takeAll(rig.engine, track, block), sectorsOf(40, 900));
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(track), 900 * 2352);
        EXPECT_GT(rig.script->facts().verifiedReads, 0);
        EXPECT_EQ(rig.engine.discReport(track)->lostSectors, 0);
        EXPECT_TRUE(rig.engine.BASS_ChannelStop(track)); // which frees it
        EXPECT_FALSE(rig.engine.BASS_StreamFree(track));
    }
}

TEST(RipRead, TellsTheFormOfTheTrack) {
    DiscRig rig(tocOf({75}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    BASS_CHANNELINFO info;
    ASSERT_TRUE(rig.engine.BASS_ChannelGetInfo(track, info));
    EXPECT_EQ(info.freq, 44100U);
    EXPECT_EQ(info.chans, 2U);
    EXPECT_EQ(info.flags, kRip);
    int frequency = 0;
    int volume = 0;
    int pan = 0;
    ASSERT_TRUE(rig.engine.BASS_ChannelGetAttributes(track, frequency, volume, pan));
    EXPECT_EQ(frequency, 44100);
    EXPECT_FALSE(rig.engine.BASS_ChannelSetPosition(track, 0));
    EXPECT_FALSE(rig.engine.BASS_StreamPlay(track, true, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::decodingChannel);
}

TEST(RipRead, GivesNothingForAMomentWhileTheDriveIsSlow) {
    DiscRig rig(tocOf({600}));
    rig.script->change([](auto& facts) { facts.hangs = true; });
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    std::vector<std::byte> buffer(20000);
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(rig.engine.BASS_ChannelGetData(track, buffer.data(), 20000), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 50ms);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(track), Activity::playing);
    rig.script->change([](auto& facts) { facts.hangs = false; });
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOf(0, 600));
}

TEST(RipRead, CountsWhatItCouldNotRead) {
    DiscRig rig(tocOf({200}));
    rig.script->change([](auto& facts) { facts.unreadable = {3, 4, 150}; });
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    auto expected = sectorsOf(0, 200);
    for (const int sector : {3, 4, 150}) {
        std::fill_n(expected.begin() + sector * 2352, 2352, std::byte{0});
    }
    EXPECT_EQ(takeAll(rig.engine, track), expected);
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::unreadable);
    EXPECT_EQ(rig.engine.discReport(track)->lostSectors, 3);
}

TEST(RipRead, EndsWithTheDisc) {
    DiscRig rig(tocOf({600}));
    rig.script->change([](auto& facts) { facts.opensAt = 100; });
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    EXPECT_EQ(takeAll(rig.engine, track), sectorsOf(0, 100));
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::noDisc);
    EXPECT_TRUE(eventually([&] { return !rig.engine.BASS_CD_IsReady(0); })); // it was looked at
}

TEST(RipRead, EndsWithTheDrive) {
    DiscRig rig(tocOf({75 * 60}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    rig.script->change([](auto& facts) { facts.gone = true; });
    test::awaitLook(rig.engine);
    EXPECT_LT(takeAll(rig.engine, track).size(), std::size_t{75} * 60 * 2352);
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::noDrive);
}

TEST(RipRead, EndsWhereNothingCanBeVerified) {
    DiscRig rig(tocOf({75}));
    rig.script->change([](auto& facts) { facts.refusesVerified = true; });
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    EXPECT_TRUE(takeAll(rig.engine, track).empty());
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::noDisc);
}

TEST(RipRead, ReadsNoFurtherAheadThanItNeedsTo) {
    DiscRig rig(tocOf({75 * 120}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    int reads = 0;
    EXPECT_TRUE(eventually([&] {
        const int now = rig.script->facts().reads;
        return std::exchange(reads, now) == now && now > 0;
    }));
    EXPECT_LT(reads, 75 * 8);
    EXPECT_EQ(takeAll(rig.engine, track, 262144).size(), std::size_t{75} * 120 * 2352);
}

TEST(RipRead, IsLetGoWhileItWaits) {
    DiscRig rig(tocOf({75 * 120}));
    rig.script->change([](auto& facts) { facts.hangs = true; });
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kRip);
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_TRUE(rig.engine.BASS_StreamFree(track));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 50ms);
    rig.script->change([](auto& facts) { facts.hangs = false; });
    test::awaitLook(rig.engine); // behind what was left of it
    EXPECT_LT(rig.script->facts().reads, 75);
}

} // namespace tovik::sound
