// SPDX-License-Identifier: GPL-3.0-or-later
// Modules as channels: lengths, loops and ends.
#include "sound/engine/Buffers.h"
#include "sound/engine/ModuleLength.h"

#include <array>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;

constexpr std::array kSongs = {"song.mod", "song.s3m", "song.xm",
                               "song.it",  "song.mtm", "song.umx"};

} // namespace

TEST(ModuleChannel, HasALengthInBytesAndInOrders) {
    for (const char* name : kSongs) {
        EngineRig rig;
        const Handle module = rig.open(name);
        const std::int64_t bytes = rig.engine.BASS_MusicGetLength(module, true);
        EXPECT_NEAR(rig.engine.BASS_ChannelBytes2Seconds(module, bytes), 7.68, 0.3) << name;
        EXPECT_GE(rig.engine.BASS_MusicGetLength(module, false), 2) << name;
    }
}

TEST(ModuleChannel, ItsLengthIsKnownWithoutAChannel) {
    for (const char* name : kSongs) {
        EXPECT_EQ(moduleSeconds(test::mediaPath(name)), 8) << name;
    }
    EXPECT_EQ(moduleSeconds(test::mediaPath("ogg_44100.ogg")), 0);
    EXPECT_EQ(moduleSeconds("/not/there.mod"), 0);
}

TEST(ModuleChannel, EndsWithoutTheLoopFlag) {
    for (const char* name : kSongs) {
        EngineRig rig;
        const Handle module = rig.play(name);
        EXPECT_FALSE(test::silent(rig.renderToEnd(module))) << name;
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(module), rig.length(module)) << name;
        EXPECT_TRUE(test::silent(rig.render(5000))) << name;
    }
}

TEST(ModuleChannel, NeverEndsWithTheLoopFlag) {
    for (const char* name : kSongs) {
        EngineRig rig;
        const Handle module = rig.play(name, BASS_MUSIC_LOOP);
        const std::int64_t length = rig.length(module);
        bool wrapped = false;
        std::int64_t last = 0;
        for (int step = 0; step < 100; ++step) {
            EXPECT_FALSE(test::silent(rig.render(9000))) << name;
            ASSERT_EQ(rig.engine.BASS_ChannelIsActive(module), Activity::playing) << name;
            const std::int64_t now = rig.engine.BASS_ChannelGetPosition(module);
            ASSERT_LT(now, length) << name;
            EXPECT_EQ(now, (std::int64_t{step} + 1) * 9000 * 4 % length) << name;
            wrapped = wrapped || now < last;
            last = now;
        }
        EXPECT_TRUE(wrapped) << name;
    }
}

TEST(ModuleChannel, PlaysOnFromWhereItWasSought) {
    EngineRig rig;
    const Handle module = rig.play("song.it");
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(module, 4 * 44100 * 4));
    const std::int64_t stands = rig.engine.BASS_ChannelGetPosition(module);
    const auto frame = static_cast<std::size_t>(stands / 4);
    const test::Stereo there = rig.render(20000);
    EngineRig other;
    other.play("song.it");
    const test::Stereo whole = other.render(frame + 20000);
    EXPECT_LE(test::largestDifference(test::cut(there, 220), test::cut(whole, frame + 220)), 0.02F);
}

} // namespace tovik::sound
