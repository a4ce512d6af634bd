// SPDX-License-Identifier: GPL-3.0-or-later
// Drives that fail while a track is heard: nothing hangs, and it is told.
#include "sound/cd/DiscRig.h"
#include "sound/engine/Buffers.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>

namespace tovik::sound {

using test::DiscRig;
using test::kHeard;
using test::sectorsOf;
using test::soundOf;
using test::Stereo;
using test::tocOf;
using namespace std::chrono_literals;

namespace {

Handle playTrack(DiscRig& rig) {
    const Handle track = rig.engine.BASS_CD_StreamCreate(0, 0, kHeard);
    EXPECT_TRUE(rig.engine.BASS_StreamPlay(track, true, 0));
    return track;
}

/// A disc of one track with these sectors silent.
Stereo withSilence(std::int32_t sectors, const std::set<std::int32_t>& silent) {
    auto bytes = sectorsOf(0, sectors);
    for (const std::int32_t sector : silent) {
        std::fill_n(bytes.begin() + sector * 2352, 2352, std::byte{0});
    }
    return soundOf(bytes);
}

} // namespace

TEST(DiscFaults, ASectorThatCannotBeReadIsSilence) {
    DiscRig rig(tocOf({120}));
    rig.script->change([](auto& facts) { facts.unreadable = {60}; });
    const Handle track = playTrack(rig);
    Stereo heard = rig.rig.renderToEnd(track);
    heard.resize(std::size_t{120} * 588 * 2);
    test::expectSame(heard, withSilence(120, {60}));
    const auto report = rig.engine.discReport(track);
    EXPECT_EQ(report->trouble, DiscTrouble::unreadable);
    EXPECT_EQ(report->lostSectors, 1);
}

/// Each try at a sector may take seconds, so a long scratch is not tried sector by sector.
TEST(DiscFaults, ALongScratchIsLeftOutInGrowingSteps) {
    DiscRig rig(tocOf({75 * 8}));
    rig.script->change([](auto& facts) {
        for (std::int32_t sector = 150; sector < 450; ++sector) {
            facts.unreadable.insert(sector);
        }
    });
    const Handle track = playTrack(rig);
    const Stereo heard = rig.rig.renderToEnd(track);
    EXPECT_GE(heard.size(), std::size_t{75} * 8 * 588 * 2); // nothing is missing
    EXPECT_LE(rig.script->facts().reads, 24);               // half of them where it can be read
    EXPECT_GE(rig.engine.discReport(track)->lostSectors, 300);
    EXPECT_LT(rig.engine.discReport(track)->lostSectors, 375);
}

/// A side that cannot be read is not tried for hours.
TEST(DiscFaults, AMinuteThatCannotBeReadEndsTheTrack) {
    DiscRig rig(tocOf({75 * 180}));
    rig.script->change([](auto& facts) {
        for (std::int32_t sector = 75; sector < 75 * 180; ++sector) {
            facts.unreadable.insert(sector);
        }
    });
    const Handle track = playTrack(rig);
    const Stereo heard = rig.rig.renderToEnd(track, 200 * 44100);
    EXPECT_LT(rig.script->facts().reads, 40);
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::unreadable);
    const std::int64_t end = rig.engine.BASS_ChannelGetPosition(track);
    EXPECT_GE(end, std::int64_t{61} * 176400);
    EXPECT_LT(end, std::int64_t{80} * 176400);
    EXPECT_GE(std::int64_t{4} * static_cast<std::int64_t>(heard.size() / 2), end);
}

TEST(DiscFaults, SeekingLeavesSilenceBehind) {
    DiscRig rig(tocOf({75 * 20}));
    rig.script->change([](auto& facts) {
        for (std::int32_t sector = 0; sector < 75 * 8; ++sector) {
            facts.unreadable.insert(sector);
        }
    });
    const Handle track = playTrack(rig);
    rig.rig.render(44100 * 3);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(track, 75 * 10 * 2352));
    constexpr std::size_t kRamp = 512; // from the place before
    const Stereo heard = rig.rig.render(4000);
    test::expectSame(test::cut(heard, kRamp),
                     test::cut(soundOf(sectorsOf(75 * 10, 10)), kRamp, 4000));
}

TEST(DiscFaults, ADriveThatGivesFewerSectorsIsAskedAgain) {
    DiscRig rig(tocOf({100}));
    rig.script->change([](auto& facts) { facts.mostSectors = 4; });
    const Handle track = playTrack(rig);
    Stereo heard = rig.rig.renderToEnd(track);
    heard.resize(std::size_t{100} * 588 * 2);
    test::expectSame(heard, soundOf(sectorsOf(0, 100)));
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::none);
}

TEST(DiscFaults, ATrayThatOpensEndsTheTrack) {
    DiscRig rig(tocOf({300}));
    rig.script->change([](auto& facts) { facts.opensAt = 81; });
    const Handle track = playTrack(rig);
    Stereo heard = rig.rig.renderToEnd(track);
    heard.resize(std::size_t{81} * 588 * 2);
    test::expectSame(heard, soundOf(sectorsOf(0, 81)));
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::noDisc);
    EXPECT_EQ(rig.engine.BASS_StreamGetLength(track), 81 * 2352);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(track), 81 * 2352);
    EXPECT_TRUE(eventually([&] { return !rig.engine.BASS_CD_IsReady(0); })); // it was looked at
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 0, kHeard), kNoHandle);
}

TEST(DiscFaults, AnotherDiscIsNotTakenForTheFirst) {
    DiscRig rig(tocOf({75 * 10}), {.drives = {.watchPeriod = 0ms}});
    const Handle track = playTrack(rig);
    rig.rig.render(44100);
    rig.script->insert(tocOf({75 * 20}));
    rig.rig.renderToEnd(track);
    EXPECT_EQ(rig.engine.discReport(track)->trouble, DiscTrouble::noDisc);
    EXPECT_LT(rig.engine.BASS_ChannelGetPosition(track), 75 * 10 * 2352);
}

TEST(DiscFaults, ADriveThatIsUnpluggedEndsTheTrack) {
    DiscRig rig(tocOf({75 * 10}));
    const Handle track = playTrack(rig);
    rig.rig.render(44100);
    rig.script->change([](auto& facts) { facts.gone = true; });
    rig.rig.renderToEnd(track);
    EXPECT_GE(rig.engine.discReport(track)->trouble, DiscTrouble::noDisc);
}

TEST(DiscFaults, ADriveThatIsUnpluggedAndLookedForEndsTheTrackToo) {
    DiscRig rig(tocOf({75 * 20}), {.feeder = FeederMode::ownThread});
    const Handle track = playTrack(rig);
    ASSERT_TRUE(eventually([&] {
        rig.rig.render(512);
        return rig.engine.BASS_ChannelGetPosition(track) > 0;
    }));
    rig.script->change([](auto& facts) {
        facts.gone = true;
        facts.hangs = true; // a read is under way, others wait behind it
    });
    rig.engine.lookAtDrives();
    EXPECT_TRUE(eventually([&] { return !rig.engine.BASS_CD_GetDriveDescription(0); }));
    rig.script->change([](auto& facts) { facts.hangs = false; });
    EXPECT_TRUE(eventually([&] {
        rig.rig.render(4096);
        return rig.engine.BASS_ChannelIsActive(track) == Activity::stopped;
    }));
    EXPECT_GE(rig.engine.discReport(track)->trouble, DiscTrouble::noDisc);
}

TEST(DiscFaults, ADriveThatDoesNotAnswerHoldsUpNobody) {
    DiscRig rig(tocOf({75 * 20, 75}), {.feeder = FeederMode::ownThread});
    rig.script->change([](auto& facts) { facts.hangs = true; });
    const auto begun = std::chrono::steady_clock::now();
    const Handle track = playTrack(rig);
    EXPECT_TRUE(test::silent(rig.rig.render(4096)));
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(track), Activity::stalled);
    EXPECT_TRUE(rig.engine.BASS_ChannelSetPosition(track, 176400));
    const Handle file = rig.rig.play("wav_s16_44100_stereo.wav");
    EXPECT_TRUE(rig.engine.BASS_StreamFree(track));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 500ms);
    EXPECT_TRUE(eventually([&] { return !test::silent(rig.rig.render(2048)); }));
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(file), Activity::playing);
    rig.script->change([](auto& facts) { facts.hangs = false; });
}

} // namespace tovik::sound
