// SPDX-License-Identifier: GPL-3.0-or-later
// How long a crossfade to a row takes that the user goes on to.
#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using player::AskedBy;

class ComfortFade : public PlayerRig {
protected:
    ComfortFade() {
        addRows(3, {.seconds = 60});
        state_.CrossfadeOn = true;
        state_.comfort = {};
        state_.comfort.shortensManualNext = true;
        set("CFDT", "5");
        rowPlayer_.PlayRow(1, 0);
        state_.TracksStarted = 1;
    }

    /// The time that the track that sounded slides to silence in, when that is done.
    template <typename Act>
    int slideOf(const Act& act) {
        sound_.calls.clear();
        act();
        for (const std::string& call : sound_.calls) {
            if (call.starts_with("BASS_ChannelSlideAttributes") &&
                call.find(", -1, 0, -101, ") != std::string::npos) {
                return std::stoi(call.substr(call.rfind(' ')));
            }
        }
        return -1;
    }
};

TEST_F(ComfortFade, isHalfTheTimeForTheUserAndTwoSecondsAtMost) {
    EXPECT_EQ(slideOf([&] { advance_.goOn(AskedBy::user); }), 2000);
    EXPECT_EQ(CrossFade_->interval(), 2000);
    EXPECT_EQ(slideOf([&] { advance_.Next_track(); }), 5000);
    EXPECT_EQ(CrossFade_->interval(), 5000);
    set("CFDT", "3");
    EXPECT_EQ(slideOf([&] { advance_.button_previous(); }), 1500);
    EXPECT_EQ(slideOf([&] { advance_.button_next(); }), 1500);
    EXPECT_EQ(CrossFade_->interval(), 1500);
}

TEST_F(ComfortFade, isTheTimeThatIsSet) {
    set("CFDN", "0.7");
    EXPECT_EQ(slideOf([&] { advance_.button_next(); }), 700);
    EXPECT_EQ(slideOf([&] { advance_.Next_track(); }), 5000);
    set("CFDN", "-1");
    // No time: the old track is gone at once.
    EXPECT_EQ(slideOf([&] { advance_.button_previous(); }), -1);
    EXPECT_FALSE(crossfade_.runs());
}

TEST_F(ComfortFade, theOldTrackGoesWhenItIsSilent) {
    advance_.button_next();
    const sound::Handle old = state_.PrimaryChannel;
    ASSERT_NE(old, sound::kNoHandle);
    ASSERT_TRUE(crossfade_.runs());
    advance(1900);
    EXPECT_TRUE(crossfade_.runs());
    advance(200);
    EXPECT_FALSE(crossfade_.runs());
    EXPECT_EQ(sound_.BASS_ChannelIsActive(old), sound::Activity::stopped);
}

TEST_F(ComfortFade, withoutComfortEachTakesTheSameTime) {
    state_.comfort.shortensManualNext = false;
    set("CFDN", "1");
    EXPECT_EQ(slideOf([&] { advance_.goOn(AskedBy::user); }), 5000);
    EXPECT_EQ(slideOf([&] { advance_.button_previous(); }), 5000);
    EXPECT_EQ(slideOf([&] { advance_.Next_track(); }), 5000);
}

} // namespace
} // namespace tovik::test
