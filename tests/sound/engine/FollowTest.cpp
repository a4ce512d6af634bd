// SPDX-License-Identifier: GPL-3.0-or-later
// A channel that starts with the very sample behind the last one of another.
#include "sound/engine/Buffers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::expectSame;
using test::RigSetup;
using test::Stereo;
using test::wavSamples;

constexpr const char* kWhole = "gapless_whole.wav";

std::size_t framesOf(const Stereo& sound) {
    return sound.size() / 2;
}

/// The three parts of a sound, each following the one before.
Stereo inARow(EngineRig& rig, const std::string& suffix, std::size_t frames) {
    const Handle first = rig.play("gapless_1" + suffix);
    const Handle second = rig.open("gapless_2" + suffix);
    EXPECT_TRUE(rig.engine.playBehind(second, first));
    Stereo sound = rig.render(frames / 2);
    const Handle third = rig.open("gapless_3" + suffix);
    EXPECT_TRUE(rig.engine.playBehind(third, second));
    const Stereo rest = rig.render(frames - frames / 2);
    sound.insert(sound.end(), rest.begin(), rest.end());
    return sound;
}

class Following : public testing::TestWithParam<std::size_t> {};

} // namespace

TEST_P(Following, JoinsSampleForSample) {
    const Stereo whole = wavSamples(kWhole);
    for (const std::string suffix : {".wav", ".flac"}) {
        EngineRig rig({.blockFrames = GetParam()});
        expectSame(cut(inARow(rig, suffix, framesOf(whole) + 3000), 0, framesOf(whole)), whole,
                   suffix);
    }
}

INSTANTIATE_TEST_SUITE_P(Blocks, Following, testing::Values(1, 333, 512, 1024, 4096));

TEST(Follow, JoinsOverADeviceThatQueues) {
    EngineRig rig({.queue = {.length = 44100, .request = 17640, .margin = 4851}});
    const Stereo whole = wavSamples(kWhole);
    const Stereo sound = inARow(rig, ".wav", framesOf(whole) + 6000);
    std::size_t begin = 0;
    while (begin < framesOf(sound) && sound[2 * begin] == 0.0F && sound[2 * begin + 1] == 0.0F) {
        ++begin;
    }
    std::size_t silent = 0;
    while (whole[2 * silent] == 0.0F && whole[2 * silent + 1] == 0.0F) {
        ++silent;
    }
    ASSERT_GE(begin, silent);
    expectSame(cut(sound, begin - silent, begin - silent + framesOf(whole)), whole);
}

TEST(Follow, StartsAtOnceBehindOneThatHasEnded) {
    EngineRig rig;
    const Handle first = rig.play("gapless_1.wav");
    rig.renderToEnd(first);
    const Handle second = rig.open("gapless_2.wav");
    ASSERT_TRUE(rig.engine.playBehind(second, first));
    const Stereo part = wavSamples("gapless_2.wav");
    expectSame(cut(rig.render(framesOf(part)), 0, framesOf(part)), part);
}

TEST(Follow, GoesOnWhereTheOneBeforeEndsWithABlockAndIsFreedBehindIt) {
    EngineRig rig;
    const Stereo part = wavSamples("gapless_1.wav");
    const Stereo next = wavSamples("gapless_2.wav");
    const Handle first = rig.play("gapless_1.wav");
    const Handle second = rig.open("gapless_2.wav");
    ASSERT_TRUE(rig.engine.playBehind(second, first));
    expectSame(rig.render(framesOf(part)), part);
    ASSERT_EQ(rig.engine.BASS_ChannelIsActive(first), Activity::stopped);
    ASSERT_TRUE(rig.engine.BASS_StreamFree(first));
    expectSame(rig.render(framesOf(next)), next);
}

TEST(Follow, StaysSilentWhereTheOneBeforeGoes) {
    for (const bool stopped : {true, false}) {
        EngineRig rig;
        const Handle first = rig.play("gapless_1.wav");
        const Handle second = rig.open("gapless_2.wav");
        ASSERT_TRUE(rig.engine.playBehind(second, first));
        rig.render(5000);
        ASSERT_TRUE(stopped ? rig.engine.BASS_ChannelStop(first)
                            : rig.engine.BASS_StreamFree(first));
        rig.render(2000); // what sounded has faded away
        EXPECT_TRUE(test::silent(rig.render(60'000))) << stopped;
        EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(second), 0);
    }
}

TEST(Follow, ThatIsGivenUpLeavesTheEndOfTheOneBefore) {
    EngineRig rig;
    const Stereo part = wavSamples("gapless_1.wav");
    const Handle first = rig.play("gapless_1.wav");
    const Handle second = rig.open("gapless_2.wav");
    ASSERT_TRUE(rig.engine.playBehind(second, first));
    const Stereo begin = rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_StreamFree(second));
    const Stereo rest = rig.renderToEnd(first);
    expectSame(begin, cut(part, 0, 5000));
    expectSame(cut(rest, 0, framesOf(part) - 5000), cut(part, 5000));
    EXPECT_TRUE(test::silent(rig.render(20'000)));
}

TEST(Follow, WaitsLongerWhenTheOneBeforeGoesBack) {
    EngineRig rig;
    const Stereo part = wavSamples("gapless_1.wav");
    const Stereo next = wavSamples("gapless_2.wav");
    const Handle first = rig.play("gapless_1.wav");
    const Handle second = rig.open("gapless_2.wav");
    ASSERT_TRUE(rig.engine.playBehind(second, first));
    rig.render(framesOf(part) / 2);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(first, 0));
    const Stereo again = rig.render(framesOf(part) + framesOf(next));
    const std::size_t ramp = 1000; // the old place fades out meanwhile
    expectSame(cut(again, ramp, framesOf(part)), cut(part, ramp));
    expectSame(cut(again, framesOf(part)), next);
}

TEST(EqualPower, HoldsAllAlong) {
    EngineRig rig;
    const Handle out = rig.play("gapless_1.wav");
    const Stereo part = wavSamples("gapless_1.wav");
    const Stereo next = wavSamples("gapless_2.wav");
    const std::size_t before = 2048;
    rig.render(before);
    const Handle in = rig.open("gapless_2.wav");
    rig.engine.crossfade(in, out, 100);
    ASSERT_TRUE(rig.start(in));
    const std::size_t frames = 4410;
    const Stereo sound = rig.render(frames + 1000);
    for (std::size_t i = 0; i < frames; i += 441) {
        const double blend = static_cast<double>(i + 1) / static_cast<double>(frames);
        const double angle = blend * std::numbers::pi / 2;
        const double expected = static_cast<double>(part[2 * (before + i)]) * std::cos(angle) +
                                static_cast<double>(next[2 * i]) * std::sin(angle);
        EXPECT_NEAR(sound[2 * i], expected, 1e-5) << i;
    }
    expectSame(cut(sound, frames, frames + 1000), cut(next, frames, frames + 1000));
}

TEST(Follow, OpensAheadWhateverTakesTheFile) {
    struct Kind {
        std::string name;
        bool music;
        bool wma;
    };

    const std::vector<Kind> kinds = {{"mp3_vbr.mp3", false, false},
                                     {"song.xm", true, false},
                                     {"wma_44100.wma", false, true},
                                     {"flac_16_44100.flac", false, false}};
    for (const Kind& kind : kinds) {
        EngineRig rig;
        const Handle first = rig.play("gapless_1.wav");
        const Handle next = rig.engine.openAhead(test::mediaPath(kind.name), false);
        EXPECT_EQ(rig.engine.BASS_MusicGetLength(next, true) > 0, kind.music) << kind.name;
        EXPECT_EQ(rig.engine.BASS_WMA_GetIWMReader(next) > 0, kind.wma) << kind.name;
        ASSERT_TRUE(rig.engine.playBehind(next, first));
        rig.renderToEnd(first);
        EXPECT_FALSE(test::silent(rig.render(30'000))) << kind.name;
        EXPECT_EQ(rig.engine.BASS_ChannelIsActive(next), Activity::playing) << kind.name;
        EXPECT_EQ(rig.engine.BASS_MusicFree(next), kind.music) << kind.name;
        EXPECT_EQ(rig.engine.BASS_StreamFree(next), !kind.music) << kind.name;
    }
}

TEST(Follow, EndsAtOnceWhereNothingOpensAhead) {
    for (const std::string name : {"no.such", "list.m3u"}) {
        EngineRig rig;
        const Handle first = rig.play("gapless_1.wav");
        const Handle next = rig.engine.openAhead(test::mediaPath(name), false);
        ASSERT_TRUE(rig.engine.playBehind(next, first));
        rig.renderToEnd(first);
        EXPECT_TRUE(test::silent(rig.render(30'000))) << name;
        EXPECT_EQ(rig.engine.BASS_ChannelIsActive(next), Activity::stopped) << name;
    }
}

TEST(Follow, IsRefusedBehindWhatDoesNotPlay) {
    EngineRig rig;
    const Handle first = rig.open("gapless_1.wav");
    const Handle second = rig.open("gapless_2.wav");
    EXPECT_FALSE(rig.engine.playBehind(second, first));
    ASSERT_TRUE(rig.start(first));
    EXPECT_FALSE(rig.engine.playBehind(second, kNoHandle));
    EXPECT_FALSE(rig.engine.playBehind(kNoHandle, first));
    EXPECT_TRUE(rig.engine.playBehind(second, first));
    EXPECT_FALSE(rig.engine.playBehind(second, first)) << "it was started";
}

} // namespace tovik::sound
