// SPDX-License-Identifier: GPL-3.0-or-later
// Volume and pan: what is set, what is read back, and how slides run.
#include "sound/engine/Buffers.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::Stereo;

struct Attributes {
    int frequency = 0;
    int volume = 0;
    int pan = 0;

    bool operator==(const Attributes&) const = default;
};

Attributes attributes(EngineRig& rig, Handle channel) {
    Attributes a;
    EXPECT_TRUE(rig.engine.BASS_ChannelGetAttributes(channel, a.frequency, a.volume, a.pan));
    return a;
}

/// A file of nothing but 0.5 on both sides: the mix shows the gain.
class Attribute : public testing::Test {
protected:
    Attribute() { test::writeWav(path_, Stereo(400000, 0.5F)); }

    Handle play() { return rig_.playStream(path_); }

    EngineRig rig_;
    SoundLibrary& engine_ = rig_.engine;

private:
    test::TemporaryFolder folder_;

protected:
    const std::string path_ = folder_ / "constant.wav";
};

} // namespace

TEST_F(Attribute, ReadsBackAtOnceWhatWasSet) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, -1, 30, -60));
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 30, -60}));
    rig_.render(64);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 30, -60}));
    rig_.render(1000);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 30, -60}));
}

TEST_F(Attribute, KeepsWhatIsNotNamed) {
    const Handle channel = play();
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, -1, 30, -60));
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, 44100, -1, -101));
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 30, -60}));
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, -1, -1, 20));
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 30, 20}));
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, -1, 70, -1));
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 70, -1}));
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, -1, -101, 500));
    rig_.render(30000);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 70, -1}));
}

TEST_F(Attribute, RefusesWhatIsOutside) {
    const Handle channel = play();
    for (const int volume : {-2, 101, 1000}) {
        EXPECT_FALSE(engine_.BASS_ChannelSetAttributes(channel, -1, volume, 0));
        EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
    }
    for (const int pan : {-102, 101}) {
        EXPECT_FALSE(engine_.BASS_ChannelSlideAttributes(channel, -1, 50, pan, 10));
        EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
    }
    EXPECT_FALSE(engine_.BASS_ChannelSetAttributes(channel, 48000, 50, 0));
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::illegalRate);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 100, 0}));
}

TEST_F(Attribute, SetBeforeTheStartHoldFromTheFirstSample) {
    const Handle channel = rig_.openStream(path_);
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, -1, 50, 100));
    ASSERT_TRUE(rig_.start(channel));
    const Stereo mix = rig_.render(100);
    EXPECT_EQ(mix[0], 0.0F);
    EXPECT_EQ(mix[1], 0.25F);
}

TEST_F(Attribute, ASlideIsLinearAndEndsExactly) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 20, -101, 1000));
    EXPECT_EQ(attributes(rig_, channel).volume, 100);
    const Stereo mix = rig_.render(44100);
    for (std::size_t i = 0; i < 44100; i += 441) {
        const float gain = 1.0F - 0.8F * static_cast<float>(i + 1) / 44100.0F;
        ASSERT_NEAR(mix[2 * i], 0.5F * gain, 1e-5F) << i;
    }
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 20, 0}));
    const Stereo after = rig_.render(1000);
    EXPECT_EQ(after.front(), 0.5F * 0.2F);
    EXPECT_EQ(after.back(), 0.5F * 0.2F);
}

TEST_F(Attribute, ASlideShowsWhereItIs) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 0, 100, 1000));
    rig_.render(11025);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 75, 25}));
    rig_.render(22050);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 25, 75}));
    rig_.render(11025);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 0, 100}));
    ASSERT_TRUE(engine_.BASS_ChannelSetAttributes(channel, -1, 100, 0));
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 100, 0}));
}

TEST_F(Attribute, ASlideOfNoTimeTakesARamp) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 0, -101, 0));
    EXPECT_EQ(attributes(rig_, channel).volume, 0);
    const Stereo mix = rig_.render(300);
    EXPECT_GT(mix[2 * 100], 0.1F);
    EXPECT_EQ(mix[2 * 220], 0.0F);
}

TEST_F(Attribute, ANewSlideGoesOnFromWhereTheOldOneIs) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 0, -101, 1000));
    rig_.render(22050);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 100, -101, 1000));
    rig_.render(22050);
    EXPECT_EQ(attributes(rig_, channel).volume, 75);
}

TEST_F(Attribute, AVeryLongSlideHardlyMoves) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 0, -101, UINT32_MAX));
    rig_.render(44100);
    EXPECT_EQ(attributes(rig_, channel).volume, 100);
}

TEST_F(Attribute, StandStillWhilePaused) {
    const Handle channel = play();
    rig_.render(1000);
    ASSERT_TRUE(engine_.BASS_ChannelSlideAttributes(channel, -1, 0, -101, 1000));
    rig_.render(22050);
    ASSERT_TRUE(engine_.BASS_Pause());
    rig_.render(44100);
    EXPECT_EQ(attributes(rig_, channel).volume, 50);
}

TEST_F(Attribute, OfADecodingChannelAreFixed) {
    const Handle channel = rig_.openStream(path_, BASS_STREAM_DECODE);
    EXPECT_FALSE(engine_.BASS_ChannelSetAttributes(channel, -1, 50, 0));
    EXPECT_EQ(engine_.BASS_ErrorGetCode(), ErrorCode::decodingChannel);
    EXPECT_EQ(attributes(rig_, channel), (Attributes{44100, 100, 0}));
}

TEST_F(Attribute, AMasterVolumeSetBeforeAnythingSoundsHoldsFromTheFirstFrame) {
    const Handle channel = rig_.openStream(path_);
    ASSERT_TRUE(engine_.BASS_SetVolume(20));
    ASSERT_TRUE(rig_.start(channel));
    test::expectSame(rig_.render(1000), Stereo(2000, 0.5F * 0.2F));
}

TEST_F(Attribute, AMasterVolumeOfNothingLetsNothingThrough) {
    const Handle channel = rig_.openStream(path_);
    rig_.render(100); // the device takes silence meanwhile
    ASSERT_TRUE(engine_.BASS_SetVolume(0));
    ASSERT_TRUE(rig_.start(channel));
    EXPECT_TRUE(test::silent(rig_.render(1000)));
}

TEST_F(Attribute, AMasterVolumeSetBetweenTwoTracksHoldsFromTheFirstFrame) {
    for (const bool atItsEnd : {false, true}) {
        const Handle first = play();
        rig_.render(1000);
        if (atItsEnd) {
            rig_.renderToEnd(first);
        }
        ASSERT_TRUE(engine_.BASS_StreamFree(first));
        rig_.render(1000);
        const int percent = atItsEnd ? 50 : 20;
        const Handle second = rig_.openStream(path_);
        ASSERT_TRUE(engine_.BASS_SetVolume(percent));
        ASSERT_TRUE(rig_.start(second));
        const float gain = static_cast<float>(percent) / 100.0F;
        test::expectSame(rig_.render(1000), Stereo(2000, 0.5F * gain));
        ASSERT_TRUE(engine_.BASS_StreamFree(second));
        rig_.render(1000);
    }
}

TEST_F(Attribute, AMasterVolumeBehindAnEndedTrackHoldsForTheNextFromItsFirstFrame) {
    rig_.renderToEnd(play());
    const Handle second = rig_.openStream(path_);
    ASSERT_TRUE(engine_.BASS_SetVolume(20));
    ASSERT_TRUE(rig_.start(second));
    test::expectSame(rig_.render(1000), Stereo(2000, 0.5F * 0.2F));
}

} // namespace tovik::sound
