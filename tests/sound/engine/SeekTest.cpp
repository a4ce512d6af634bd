// SPDX-License-Identifier: GPL-3.0-or-later
// Seeks: what is heard behind one is what is heard there when the track plays through.
#include "sound/engine/Buffers.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::expectSame;
using test::kStereo;
using test::Stereo;
using test::wavSamples;

/// What the order of a sum changes in MPEG audio.
constexpr float kLastBits = 1.0F / (1 << 22);
constexpr std::size_t kRamp = 220; ///< frames until a seek has faded over

/// At half volume, so that the clip guard, which remembers, has nothing to do.
Handle playSoftly(EngineRig& rig, const std::string& name) {
    const Handle channel = rig.open(name);
    EXPECT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 50, 0));
    EXPECT_TRUE(rig.start(channel));
    return channel;
}

/// Everything of this file as the engine mixes it.
Stereo wholeMix(const std::string& name) {
    EngineRig rig;
    return rig.renderToEnd(playSoftly(rig, name));
}

bool comparable(const test::MediaFile& file) {
    return file.rate == 44100 && file.kind != "wma" && file.channels <= 2;
}

} // namespace

TEST(Seek, SoundsAsThePlayThroughDoesThere) {
    for (const test::MediaFile& file : test::goodMedia()) {
        if (!comparable(file)) {
            continue;
        }
        const Stereo whole = wholeMix(file.name);
        EngineRig rig;
        const Handle channel = playSoftly(rig, file.name);
        const std::int64_t frameBytes = file.channels * 2;
        const std::int64_t frames = rig.length(channel) / frameBytes;
        for (const std::int64_t place : {frames / 2, frames / 7, frames - 3000, std::int64_t{1},
                                         std::int64_t{0}, frames * 3 / 4 + 1}) {
            ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, place * frameBytes));
            EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), place * frameBytes);
            const auto from = static_cast<std::size_t>(place);
            const Stereo sound = cut(rig.render(2500), kRamp);
            const Stereo expected = cut(whole, from + kRamp, from + 2500);
            if (file.kind == "mp3") {
                ASSERT_EQ(sound.size(), expected.size()) << file.name;
                EXPECT_LE(test::largestDifference(sound, expected), kLastBits)
                    << file.name << " at " << place;
            } else {
                expectSame(sound, expected, file.name + " at " + std::to_string(place));
            }
            EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), (place + 2500) * frameBytes);
        }
    }
}

TEST(Seek, BeforeTheFirstBlockStartsThere) {
    for (const bool startFirst : {false, true}) {
        EngineRig rig;
        const Handle channel = rig.open(kStereo);
        if (startFirst) {
            ASSERT_TRUE(rig.start(channel));
        }
        ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 40000));
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 40000);
        ASSERT_TRUE(rig.start(channel));
        expectSame(cut(rig.render(3000), kRamp), cut(wavSamples(kStereo), 10000 + kRamp, 13000));
    }
}

TEST(Seek, ToTheBeginningBeforeTheFirstBlockNeedsNoRamp) {
    EngineRig rig;
    const Handle channel = rig.open(kStereo);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 40000));
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(channel, true, 0));
    expectSame(rig.render(3000), cut(wavSamples(kStereo), 0, 3000));
}

TEST(Seek, WhilePausedTakesEffectAtOnceAndSoundsLater) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    rig.render(2000);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 80000));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 80000);
    EXPECT_TRUE(test::silent(rig.render(2000)));
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 120000));
    EXPECT_TRUE(test::silent(rig.render(2000)));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 120000);
    ASSERT_TRUE(rig.engine.BASS_Start());
    expectSame(cut(rig.render(3000), kRamp), cut(wavSamples(kStereo), 30000 + kRamp, 33000));
}

TEST(Seek, OfSeveralInOneBlockTheLastCounts) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    for (const std::int64_t place : {400000, 4000, 250000, 20000, 80000}) {
        ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, place));
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), place);
    }
    // One crossfade to the first of them, one more to the last.
    rig.render(1024);
    const auto at = static_cast<std::size_t>(rig.engine.BASS_ChannelGetPosition(channel)) / 4;
    EXPECT_GE(at, 20000U);
    EXPECT_LE(at, 20000U + 1024U);
    expectSame(rig.render(3000), cut(wavSamples(kStereo), at, at + 3000));
}

TEST(Seek, WithinACrossfadeAndThenAPauseIsNotLost) {
    EngineRig rig({.blockFrames = 64});
    const Handle channel = rig.play(kStereo);
    rig.render(4096);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 200000));
    rig.render(64);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 300000));
    rig.render(64);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    rig.render(1024);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 80000));
    rig.render(64);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 80000);
    ASSERT_TRUE(rig.engine.BASS_Start());
    expectSame(cut(rig.render(3000), kRamp), cut(wavSamples(kStereo), 20000 + kRamp, 23000));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 80000 + 3000 * 4);
}

TEST(Seek, ToTheEndEndsAndPlayStartsAgain) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.render(5000);
    const std::int64_t length = rig.length(channel);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, length));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), length);
    rig.render(1000);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), length);
    EXPECT_TRUE(test::silent(rig.render(1000)));
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(channel, false, 0));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 0);
    expectSame(rig.render(3000), cut(wavSamples(kStereo), 0, 3000));
}

TEST(Seek, BackFromTheEndSoundsAgain) {
    EngineRig rig;
    const Handle channel = rig.play(kStereo);
    rig.renderToEnd(channel);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 40000));
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    expectSame(cut(rig.render(3000), kRamp), cut(wavSamples(kStereo), 10000 + kRamp, 13000));
}

TEST(Seek, RefusesWhatLiesOutside) {
    EngineRig rig;
    for (const char* name : {kStereo, "mp3_vbr.mp3", "song.xm", "wma_48000_mono.wma"}) {
        const Handle channel = rig.play(name);
        rig.render(1000);
        const std::int64_t before = rig.engine.BASS_ChannelGetPosition(channel);
        for (const std::int64_t place :
             {std::int64_t{-1}, rig.length(channel) + 1, INT64_MAX, INT64_MIN}) {
            EXPECT_FALSE(rig.engine.BASS_ChannelSetPosition(channel, place)) << name;
            EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::invalidPosition) << name;
        }
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), before) << name;
        rig.engine.BASS_StreamFree(channel);
        rig.engine.BASS_MusicFree(channel);
    }
}

TEST(Seek, OfWmaAndModulesStandsNearby) {
    EngineRig rig;
    const Handle wma = rig.play("wma_44100.wma");
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(wma, 300000));
    EXPECT_NEAR(static_cast<double>(rig.engine.BASS_ChannelGetPosition(wma)), 300000.0, 40 * 4);
    const Handle module = rig.play("song.xm");
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(module, 4 * 3 * 44100));
    // A row of the song lasts 0.12 s.
    EXPECT_NEAR(static_cast<double>(rig.engine.BASS_ChannelGetPosition(module)), 4 * 3 * 44100.0,
                4 * 0.12 * 44100);
}

} // namespace tovik::sound
