// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Volume : public PlayerRig {
protected:
    Volume() {
        state_.PrimaryChannel = 11;
        state_.SecondaryChannel = 12;
    }
};

TEST_F(Volume, theCurrentLegGetsTheVolumeWithACentredBalance) {
    state_.CrossfadeLeg = 2;
    volume_.Channel_Set_Volume(30);
    state_.CrossfadeLeg = 1;
    volume_.Channel_Set_Volume(0);
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(11, -1, 30, 0)",
                                          "BASS_ChannelSetAttributes(12, -1, 0, 0)"));
}

TEST_F(Volume, withItsSwitchTheBalanceIsKept) {
    state_.comfort.keepsBalance = true;
    state_.CrossfadeLeg = 2;
    volume_.Channel_Set_Volume(30);
    state_.BalanceValue = 50;
    state_.CrossfadeLeg = 1;
    volume_.Channel_Set_Volume(0);
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(11, -1, 30, -25)",
                                          "BASS_ChannelSetAttributes(12, -1, 0, 50)"));
}

TEST_F(Volume, withoutALegNothingIsSet) {
    for (const std::int16_t leg : {std::int16_t{0}, std::int16_t{3}, std::int16_t{-1}}) {
        state_.CrossfadeLeg = leg;
        volume_.Channel_Set_Volume(30);
    }
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(Volume, theModeIsReadAnew) {
    set("EV2", "1");
    EXPECT_EQ(state_.GlobalVolumeMode, 0);
    volume_.readMode();
    EXPECT_EQ(state_.GlobalVolumeMode, 1);
    state_.CrossfadeLeg = 2;
    volume_.apply();
    set("EV2", "0");
    volume_.readMode();
    volume_.apply();
    EXPECT_THAT(sound_.calls,
                ElementsAre("BASS_SetVolume(80)", "BASS_ChannelSetAttributes(11, -1, 80, 0)"));
}

} // namespace
} // namespace tovik::test
