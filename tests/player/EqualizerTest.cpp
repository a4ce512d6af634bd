// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerRig.h"

#include <limits>

namespace tovik::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Equalizer : public EqualizerRig {};

TEST_F(Equalizer, tenFiltersWithTheirCentresAndThenTheSliders) {
    put({0, 1, 2, 3, 4, 10, 12, 15, 19, 20});
    sound_.effectCalls.clear();
    equalizer_.Set_EQ();
    ASSERT_THAT(sound_.effectCalls, SizeIs(30));
    for (std::size_t band = 0; band < 10; ++band) {
        EXPECT_EQ(sound_.effectCalls[band], "BASS_ChannelSetFX(1, 7)");
    }
    // Flat first, then the curve.
    EXPECT_EQ(sound_.effectCalls[10], "BASS_FXSetParameters(1001, 60, 15, 0)");
    EXPECT_EQ(sound_.effectCalls[19], "BASS_FXSetParameters(1010, 16000, 15, 0)");
    EXPECT_EQ(sound_.effectCalls[20], "BASS_FXSetParameters(1001, 60, 15, 10)");
    EXPECT_EQ(sound_.effectCalls[29], "BASS_FXSetParameters(1010, 16000, 15, -10)");
    std::vector<float> centres;
    for (const auto& [handle, effect] : sound_.effects) {
        centres.push_back(effect.parameters.fCenter);
        EXPECT_EQ(effect.parameters.fBandwidth, 15.0F);
    }
    EXPECT_THAT(centres, ElementsAre(60, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000));
    EXPECT_THAT(gains(), ElementsAre(10, 9, 8, 7, 6, 0, -2, -5, -9, -10));
}

TEST_F(Equalizer, aBandAndTheMasterAddUpToTwentyDecibels) {
    equalizer_.Set_EQ();
    EXPECT_THAT(gains(), Each(0));
    master(0);
    EXPECT_THAT(gains(), Each(10));
    putAll(0);
    EXPECT_THAT(gains(), Each(20));
    master(20);
    EXPECT_THAT(gains(), Each(0));
    putAll(20);
    EXPECT_THAT(gains(), Each(-20));
    master(13);
    equalizer_.eq_sld(4, 8);
    EXPECT_EQ(gains()[4], -1.0F);
}

TEST_F(Equalizer, aSliderTellsItsBandFirstAndThenAll) {
    equalizer_.Set_EQ();
    sound_.effectCalls.clear();
    equalizer_.eq_sld(3, 7);
    ASSERT_THAT(sound_.effectCalls, SizeIs(11));
    EXPECT_EQ(sound_.effectCalls[0], "BASS_FXSetParameters(1004, 600, 15, 3)");
    EXPECT_EQ(sound_.effectCalls[1], "BASS_FXSetParameters(1001, 60, 15, 0)");
    EXPECT_EQ(sound_.effectCalls[10], "BASS_FXSetParameters(1010, 16000, 15, 0)");
    sound_.effectCalls.clear();
    master(9);
    EXPECT_THAT(sound_.effectCalls, SizeIs(10)) << "the master has no filter";
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Equalizer, theLegSaysWhichChannelGetsTheFilters) {
    state_.CrossfadeLeg = 1;
    equalizer_.Set_EQ();
    EXPECT_THAT(sound_.gains(state_.PrimaryChannel), IsEmpty());
    EXPECT_THAT(sound_.gains(state_.SecondaryChannel), SizeIs(10));
}

TEST_F(Equalizer, duringACrossfadeTheOldFiltersKeepTheirCurveOutOfReach) {
    equalizer_.Set_EQ();
    equalizer_.eq_sld(0, 4);
    state_.CrossfadeLeg = 1;
    equalizer_.Set_EQ();
    equalizer_.eq_sld(0, 20);
    EXPECT_EQ(sound_.gains(state_.PrimaryChannel)[0], 6.0F);
    EXPECT_EQ(sound_.gains(state_.SecondaryChannel)[0], -10.0F);
}

TEST_F(Equalizer, withoutALegTheFiltersOfBeforeAreSetAnew) {
    equalizer_.Set_EQ();
    for (const std::int16_t leg : {std::int16_t{0}, std::int16_t{3}, std::int16_t{-1}}) {
        state_.CrossfadeLeg = leg;
        sound_.effectCalls.clear();
        equalizer_.Set_EQ();
        EXPECT_THAT(sound_.effectCalls, SizeIs(20));
        EXPECT_EQ(sound_.effectCalls[0], "BASS_FXSetParameters(1001, 60, 15, 0)");
    }
    EXPECT_THAT(gains(), SizeIs(10));
}

TEST_F(Equalizer, aSliderBeforeTheFirstTrackHasNoEffect) {
    equalizer_.eq_sld(2, 0);
    equalizer_.Reset_EQ();
    EXPECT_THAT(sound_.effectCalls, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Equalizer, filtersOfADeadChannelAreNotSet) {
    equalizer_.Set_EQ();
    sound_.BASS_StreamFree(state_.PrimaryChannel);
    sound_.effectCalls.clear();
    equalizer_.eq_sld(2, 0);
    EXPECT_THAT(sound_.effectCalls, IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Equalizer, switchedOffIsFiveDecibelsUpAndKeepsTheSliders) {
    equalizer_.Set_EQ();
    equalizer_.eq_sld(0, 0);
    state_.EqualizerOn = true;
    equalizer_.EQ_on_Click();
    EXPECT_FALSE(state_.EqualizerOn);
    EXPECT_THAT(gains(), Each(5));
    EXPECT_EQ(sound_.effects.at(1001).parameters.fCenter, 60.0F);
    EXPECT_EQ(sound_.effects.at(1001).parameters.fBandwidth, 15.0F);
    EXPECT_EQ(equalizer_.eq_sld(0), 0);
    equalizer_.EQ_off_Click();
    EXPECT_TRUE(state_.EqualizerOn);
    EXPECT_EQ(gains()[0], 10.0F);
    EXPECT_EQ(gains()[9], 0.0F);
}

TEST_F(Equalizer, aNewTrackGetsTheCurveAlsoWhenSwitchedOff) {
    putAll(7);
    state_.EqualizerOn = true;
    equalizer_.EQ_on_Click();
    equalizer_.Set_EQ();
    EXPECT_THAT(gains(), Each(3));
    EXPECT_FALSE(state_.EqualizerOn);
}

TEST_F(Equalizer, aSliderIsHeardAlsoWhenSwitchedOff) {
    equalizer_.Set_EQ();
    equalizer_.EQ_on_Click();
    equalizer_.eq_sld(0, 8);
    EXPECT_EQ(gains()[0], 2.0F);
    EXPECT_EQ(gains()[1], 0.0F);
}

TEST_F(Equalizer, resetPutsTheBandsToTheMiddleAndLeavesTheMaster) {
    equalizer_.Set_EQ();
    put({0, 1, 2, 3, 4, 16, 17, 18, 19, 20});
    master(6);
    equalizer_.resetbt_Click();
    EXPECT_THAT(sliders(), Each(10));
    EXPECT_EQ(master(), 6);
    EXPECT_THAT(gains(), Each(4));
}

TEST_F(Equalizer, theTurnedValueIsTwentyLessTheValue) {
    for (std::int32_t value = -3; value <= 23; ++value) {
        EXPECT_EQ(equalizer_.Translate_EQ_Value(value), 20 - value);
    }
}

TEST_F(Equalizer, aTurnedValueThatDoesNotFitIsReported) {
    EXPECT_EQ(equalizer_.Translate_EQ_Value(std::numeric_limits<std::int32_t>::min()), 0);
    EXPECT_THAT(logged(), ElementsAre("Overflow,6,Player,Translate_EQ_Value"));
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in Function Translate_EQ_Value");
}

TEST_F(Equalizer, aBandThatIsNoneIsReported) {
    equalizer_.UpdateEQ(-1);
    equalizer_.UpdateEQ(10);
    EXPECT_THAT(logged(), Each("Subscript out of range,9,Player,UpdateEQ"));
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(2));
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in UpdateEQ function");
    EXPECT_THROW(static_cast<void>(equalizer_.eq_sld(11)), base::RuntimeError);
}

TEST_F(Equalizer, aStartAsksForTheFiltersBeforeBalanceAndVolume) {
    const std::string path = track("a.mp3", {.seconds = 10});
    fetchRow(path, "Song");
    sound_.calls.clear();
    burn(path);
    EXPECT_EQ(std::ranges::count(sound_.calls, "Set_EQ"), 1);
    const auto asked = std::ranges::find(sound_.calls, "Set_EQ");
    ASSERT_LT(asked + 1, sound_.calls.end());
    EXPECT_EQ(asked[1], "BASS_ChannelSetAttributes(3, -1, -1, -25)");
}

TEST_F(Equalizer, aWmaStreamIsAskedForToo) {
    const std::string path = track("a.wma", {.kind = FakeKind::wma, .seconds = 10});
    fetchRow(path, "Song");
    sound_.calls.clear();
    burn(path);
    EXPECT_EQ(std::ranges::count(sound_.calls, "Set_EQ"), 1);
    const auto asked = std::ranges::find(sound_.calls, "Set_EQ");
    ASSERT_LT(asked + 1, sound_.calls.end());
    EXPECT_THAT(asked[1], testing::StartsWith("BASS_ChannelSetAttributes("));
}

} // namespace
} // namespace tovik::test
