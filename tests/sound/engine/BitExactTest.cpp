// SPDX-License-Identifier: GPL-3.0-or-later
// With everything neutral the mix is the sound of the file, bit for bit.
#include "sound/engine/Buffers.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::cut;
using test::EngineRig;
using test::expectSame;
using test::Stereo;
using test::wavSamples;

class BitExact : public testing::TestWithParam<const char*> {};

Stereo withoutTail(const Stereo& mix, const Stereo& source) {
    EXPECT_TRUE(test::silent(cut(mix, source.size() / 2)));
    return cut(mix, 0, source.size() / 2);
}

} // namespace

TEST_P(BitExact, TheMixEqualsTheFile) {
    EngineRig rig;
    const Stereo source = wavSamples(GetParam());
    const Handle channel = rig.play(GetParam());
    expectSame(withoutTail(rig.renderToEnd(channel), source), source);
}

TEST_P(BitExact, AlsoInOddBlocksWithBandsAtZero) {
    EngineRig rig({.blockFrames = 333});
    const Stereo source = wavSamples(GetParam());
    const Handle channel = rig.open(GetParam());
    for (int band = 0; band < 10; ++band) {
        const Handle effect = rig.engine.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
        const auto centre = static_cast<float>(31 << band);
        ASSERT_TRUE(rig.engine.BASS_FXSetParameters(effect, {centre, 15.0F, 0.0F}));
    }
    ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 100, 0));
    ASSERT_TRUE(rig.start(channel));
    expectSame(withoutTail(rig.renderToEnd(channel), source), source);
}

INSTANTIATE_TEST_SUITE_P(Forms, BitExact,
                         testing::Values("wav_u8_44100_stereo.wav", "wav_s16_44100_stereo.wav",
                                         "wav_s16_44100_mono.wav", "wav_s24_44100_stereo.wav",
                                         "wav_s32_44100_stereo.wav", "wav_f32_44100_stereo.wav"));

TEST(BitExactMix, OfASecondTrackAfterFreeAndInit) {
    EngineRig rig;
    rig.play("wav_s16_44100_mono.wav");
    rig.render(20000);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    rig.render(2000);
    ASSERT_TRUE(rig.engine.BASS_Free());
    ASSERT_TRUE(rig.init());
    rig.play("wav_s16_44100_stereo.wav");
    expectSame(rig.render(30000), cut(wavSamples("wav_s16_44100_stereo.wav"), 0, 30000));
}

TEST(BitExactMix, WhenTheTrackStartsAgainAfterItsEndOrAStop) {
    EngineRig rig;
    const Stereo source = wavSamples("wav_s16_44100_stereo.wav");
    const Handle channel = rig.play("wav_s16_44100_stereo.wav");
    rig.renderToEnd(channel);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(channel, false, 0));
    expectSame(rig.render(5000), cut(source, 0, 5000), "after the end");
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(channel));
    rig.render(5000);
    ASSERT_TRUE(rig.engine.BASS_StreamPlay(channel, false, 0));
    expectSame(rig.render(5000), cut(source, 0, 5000), "after a stop");
}

TEST(BitExactMix, GaplessPartsInTheirOwnChannels) {
    EngineRig rig;
    const Stereo whole = wavSamples("gapless_whole.wav");
    for (const char* kind : {".wav", ".flac"}) {
        Stereo mix;
        for (const char* part : {"gapless_1", "gapless_2", "gapless_3"}) {
            const Handle channel = rig.play(std::string(part) + kind);
            const std::int64_t frames = rig.length(channel) / 4;
            const Stereo sound = rig.render(static_cast<std::size_t>(frames));
            EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
            mix.insert(mix.end(), sound.begin(), sound.end());
        }
        expectSame(mix, whole, kind);
    }
}

} // namespace tovik::sound
