// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks of a disc as they are heard.
#include "sound/cd/DiscRig.h"
#include "sound/engine/Buffers.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tovik::sound {

using test::DiscRig;
using test::kHeard;
using test::sectorsOf;
using test::soundOf;
using test::Stereo;
using test::tocOf;

TEST(DiscPlay, GivesTheSamplesOfTheTrackAndEnds) {
    DiscRig rig(tocOf({40, 80, 30}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 1, kHeard);
    ASSERT_NE(track, kNoHandle);
    EXPECT_EQ(rig.engine.BASS_StreamGetLength(track), 80 * 2352);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(track, true, 0));
    Stereo heard = rig.rig.renderToEnd(track);
    heard.resize(std::size_t{80} * 588 * 2);
    test::expectSame(heard, soundOf(sectorsOf(40, 80)));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(track), 80 * 2352);
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::none);
}

TEST(DiscPlay, SeeksToTheFrame) {
    DiscRig rig(tocOf({400}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    constexpr std::int64_t kFrame = 588 * 300 + 17;
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(track, kFrame * 4));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(track), kFrame * 4);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(track, false, 0));
    constexpr std::size_t kRamp = 512; // from the place before
    const Stereo heard = rig.rig.render(2000);
    const Stereo all = soundOf(sectorsOf(300, 10));
    test::expectSame(test::cut(heard, kRamp), test::cut(all, kRamp + 17, 2017));
    EXPECT_FALSE(rig.engine.BASS_ChannelSetPosition(track, 400 * 2352 + 4));
}

TEST(DiscPlay, HasFiltersAndTellsItsForm) {
    DiscRig rig(tocOf({75}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    EXPECT_NE(rig.engine.BASS_ChannelSetFX(track, BASS_FX_PARAMEQ), kNoHandle);
    BASS_CHANNELINFO info;
    ASSERT_TRUE(rig.engine.BASS_ChannelGetInfo(track, info));
    EXPECT_EQ(info.freq, 44100U);
    EXPECT_EQ(info.chans, 2U);
}

TEST(DiscPlay, IsFreedWhenItIsStopped) {
    DiscRig rig(tocOf({75}));
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    EXPECT_TRUE(rig.engine.BASS_ChannelStop(track));
    EXPECT_FALSE(rig.engine.BASS_StreamPlay(track, false, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
    EXPECT_FALSE(rig.engine.discReport(track));
}

/// 4 s lie ready, so that a drive that takes its time is not heard.
TEST(DiscPlay, ReadsFourSecondsAhead) {
    DiscRig rig(tocOf({75 * 20}), {.feeder = FeederMode::ownThread});
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(track, true, 0));
    // Nothing is taken; it is read until it has enough.
    int reads = 0;
    EXPECT_TRUE(eventually([&] {
        const int now = rig.script->facts().reads;
        return std::exchange(reads, now) == now && now * 27 >= 75 * 4;
    }));
    rig.script->change([](auto& facts) { facts.hangs = true; });
    const Stereo heard = rig.rig.render(44100 * 4);
    test::expectSame(heard, test::cut(soundOf(sectorsOf(0, 75 * 4)), 0, 44100 * 4));
    rig.script->change([](auto& facts) { facts.hangs = false; });
}

TEST(DiscPlay, TwoTracksOfOneDiscSoundTogether) {
    DiscRig rig(tocOf({150, 150}));
    const Handle first = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    const Handle second = rig.engine.BASS_CD_StreamCreate(0, 1, kHeard);
    for (const Handle track : {first, second}) {
        ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(track, -1, 50, -101));
    }
    rig.rig.render(512); // the volume has come to its place
    for (const Handle track : {first, second}) {
        ASSERT_TRUE(rig.engine.BASS_StreamPlay(track, true, 0));
    }
    const Stereo heard = rig.rig.render(44100);
    const Stereo one = soundOf(sectorsOf(0, 75));
    const Stereo two = soundOf(sectorsOf(150, 75));
    float worst = 0;
    for (std::size_t i = 2000; i < heard.size(); ++i) {
        worst = std::max(worst, std::abs(heard[i] - (one[i] + two[i]) / 2));
    }
    EXPECT_LT(worst, 1e-5F);
}

/// A disc that was never looked at is looked at now.
TEST(DiscPlay, OpensATrackOfAnUnseenDisc) {
    const auto script = std::make_shared<test::DriveScript>();
    test::EngineRig rig(
        {.feeder = FeederMode::ownThread, .drives = test::DriveScript::options({script})});
    script->change([](auto& facts) { facts.hangs = true; });
    script->insert(tocOf({75}));
    rig.engine.lookAtDrives();
    ASSERT_TRUE(eventually([&] { return rig.engine.BASS_CD_GetDriveDescription(0).has_value(); }));
    script->change([](auto& facts) { facts.hangs = false; });
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    EXPECT_NE(track, kNoHandle);
    EXPECT_EQ(rig.engine.BASS_StreamGetLength(track), 176400);
}

} // namespace tovik::sound
