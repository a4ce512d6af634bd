// SPDX-License-Identifier: GPL-3.0-or-later
// What the equalizer does otherwise with comfort; the oddities themselves are tested where they
// stand.
#include "player/EqualizerRig.h"

namespace tovik::test {
namespace {

using testing::Each;
using testing::IsEmpty;

class ComfortEqualizer : public EqualizerRig {
protected:
    base::Comfort& comfort() { return state_.comfort; }

    void useCurve(const std::string& curve) {
        host_.folder.write("curve.teq", "<EQ><Save Name=\"x\" Value=\"" + curve + "\"/></EQ>");
        store_.load_teq(host_.folder / "curve.teq");
    }
};

TEST_F(ComfortEqualizer, switchedOffIsFlat) {
    comfort().switchesOffFlat = true;
    equalizer_.Set_EQ();
    putAll(3);
    equalizer_.EQ_on_Click();
    EXPECT_THAT(gains(), Each(0));
    equalizer_.EQ_off_Click();
    EXPECT_THAT(gains(), Each(7));
}

TEST_F(ComfortEqualizer, aNewTrackStaysOff) {
    comfort().switchesOffFlat = comfort().staysOffForTracks = true;
    putAll(3);
    equalizer_.Set_EQ();
    EXPECT_THAT(gains(), Each(0));
    state_.EqualizerOn = true;
    state_.CrossfadeLeg = 1;
    equalizer_.Set_EQ();
    EXPECT_THAT(sound_.gains(state_.SecondaryChannel), Each(7));
}

TEST_F(ComfortEqualizer, aSliderStaysOffAndKeepsItsValue) {
    comfort().switchesOffFlat = comfort().staysOffForSliders = true;
    equalizer_.Set_EQ();
    equalizer_.EQ_on_Click();
    equalizer_.eq_sld(0, 4);
    master(2);
    EXPECT_THAT(gains(), Each(0));
    EXPECT_EQ(equalizer_.eq_sld(0), 4);
    equalizer_.EQ_off_Click();
    EXPECT_EQ(gains()[0], 14.0F);
}

TEST_F(ComfortEqualizer, aStepIsWhatItIsStoredAs) {
    comfort().countsOneDecibel = true;
    state_.EqualizerOn = true;
    equalizer_.Set_EQ();
    useCurve("12/6/3.6/0/0/0/0/0/-6/-12");
    EXPECT_FLOAT_EQ(gains()[0], 12.0F);
    EXPECT_FLOAT_EQ(gains()[1], 6.0F);
    EXPECT_FLOAT_EQ(gains()[9], -12.0F);
    EXPECT_DOUBLE_EQ(equalizer_.decibelsOf(1), 6);
    master(5);
    EXPECT_FLOAT_EQ(gains()[1], 12.0F);
    comfort().countsOneDecibel = false;
    equalizer_.followComfort();
    EXPECT_FLOAT_EQ(gains()[1], 10.0F);
    EXPECT_DOUBLE_EQ(equalizer_.decibelsOf(1), 5);
}

TEST_F(ComfortEqualizer, gainsKeepTheirFractions) {
    const std::string curve = "2.5/-0.7/8.4/0/0/0/0/0/0/11.9";
    comfort().countsOneDecibel = true;
    equalizer_.Set_EQ();
    for (const bool kind : {false, true}) {
        comfort().keepsFractions = kind;
        useCurve(curve);
        EXPECT_FLOAT_EQ(gains()[0], kind ? 2.5F : 2.4F);
        const std::string kept = host_.folder / "kept.teq";
        store_.save_teq(kept);
        EXPECT_EQ(host_.folder.read("kept.teq").find("\"" + curve + "\"") != std::string::npos,
                  kind);
    }
    EXPECT_EQ(equalizer_.eq_sld(0), 8) << "what a slider shows is whole";
}

TEST_F(ComfortEqualizer, gainsBeyondTheSliderAreItsEndWithoutABox) {
    comfort().limitsGains = true;
    useCurve("40/-40/0/0/0/0/0/0/0/0");
    EXPECT_EQ(equalizer_.eq_sld(0), 0);
    EXPECT_EQ(equalizer_.eq_sld(1), 20);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(ComfortEqualizer, bothTracksOfACrossfadeAreBent) {
    comfort().bendsBothTracks = true;
    equalizer_.Set_EQ();
    state_.CrossfadeLeg = 1;
    equalizer_.Set_EQ();
    equalizer_.eq_sld(0, 20);
    EXPECT_EQ(sound_.gains(state_.PrimaryChannel)[0], -10.0F);
    EXPECT_EQ(sound_.gains(state_.SecondaryChannel)[0], -10.0F);
}

TEST_F(ComfortEqualizer, resetTakesTheMaster) {
    comfort().resetsMaster = true;
    put({0, 1, 2, 3, 4, 16, 17, 18, 19, 20});
    master(6);
    equalizer_.resetbt_Click();
    EXPECT_THAT(sliders(), Each(10));
    EXPECT_EQ(master(), 10);
}

} // namespace
} // namespace tovik::test
