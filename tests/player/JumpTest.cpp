// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs that go to a row or a time.
#include "player/frmjump2time.h"
#include "player/frmJump2Track.h"
#include "player/PlayerRig.h"

#include <limits>
#include <utility>

namespace tovik::test {
namespace {

using player::typedSeconds;
using Label = player::frmJump2Track::Label;

class Jump2Track : public PlayerRig {
protected:
    Jump2Track() { addRows(3, {.seconds = 65}); }

    [[nodiscard]] std::string shown() const { return dialog_.Label1(Label::shownTitle, ""); }

    player::frmJump2Track dialog_{core_, rowPlayer_};
};

TEST_F(Jump2Track, theLabelsTellOfTheListAndOfTheTrack) {
    list_.GetData(2);
    dialog_.Form_Load();
    EXPECT_EQ(dialog_.Label1(Label::list, "Playlist"), "Playlist");
    EXPECT_EQ(dialog_.Label1(Label::count, "Tracks:"), "Tracks: 3");
    EXPECT_EQ(dialog_.Label1(Label::playing, "Now playing:"), "Now playing: T2");
    EXPECT_EQ(dialog_.Label1(Label::number, "Number:"), "Number:");
    EXPECT_EQ(dialog_.Label1(Label::title, "Title:"), "Title:");
    EXPECT_EQ(shown(), "");
}

TEST_F(Jump2Track, aNumberOfARowShowsItsTitle) {
    dialog_.Form_Load();
    dialog_.Text1_Change("3");
    EXPECT_TRUE(dialog_.canGo());
    EXPECT_EQ(shown(), "T3");
}

class NoRow : public Jump2Track, public testing::WithParamInterface<const char*> {};

TEST_P(NoRow, leadsNowhere) {
    dialog_.Form_Load();
    dialog_.Text1_Change("2");
    dialog_.Text1_Change(GetParam());
    EXPECT_FALSE(dialog_.canGo());
    EXPECT_EQ(shown(), "");
    dialog_.go();
    EXPECT_FALSE(state_.IsPlaying);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoRow,
                         testing::Values("", "0", "-1", "4", "x", "2x", "99999999999"));

TEST_F(Jump2Track, goPlaysTheRow) {
    dialog_.Form_Load();
    dialog_.Text1_Change("2");
    dialog_.go();
    EXPECT_EQ(mirror_.ListIndex(), 1);
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(offered(), "2");
    EXPECT_TRUE(state_.IsPlaying);
}

TEST_F(Jump2Track, aRowThatHasGoneIsNotPlayed) {
    dialog_.Form_Load();
    dialog_.Text1_Change("3");
    list_.Remove(1);
    dialog_.go();
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_EQ(shown(), "");
}

class TypedTime : public testing::TestWithParam<std::pair<const char*, int>> {};

TEST_P(TypedTime, isWhatItSays) {
    EXPECT_EQ(typedSeconds(GetParam().first), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Times, TypedTime,
                         testing::Values(std::pair{"01:30", 90}, std::pair{"1:30", 90},
                                         std::pair{"1:5", 65}, std::pair{"90:00", 5400},
                                         std::pair{"1:02:03", 3723}, std::pair{"01:02:03", 3723},
                                         std::pair{"0:0:7", 7}, std::pair{" 00:10 ", 10}));

class NoTime : public testing::TestWithParam<const char*> {};

TEST_P(NoTime, isNone) {
    EXPECT_EQ(typedSeconds(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoTime,
                         testing::Values("", "x", "90", ":", "1:", ":30", "a:b", "1:2:", "::"));

class Jump2Time : public PlayerRig {
protected:
    Jump2Time() { fetchRow(track("a", {.seconds = 200}), "A"); }

    [[nodiscard]] std::int32_t second(sound::Handle channel) const {
        return time_.GetPlayingPos(channel);
    }

    player::frmjump2time dialog_{core_, crossfade_};
};

TEST_F(Jump2Time, showsLengthAndPlace) {
    burn(list_.OutFileName);
    advance(65'000);
    EXPECT_EQ(dialog_.lbldur(), "03:20");
    EXPECT_EQ(dialog_.Text1(), "01:05");
}

TEST_F(Jump2Time, withoutATrackBothAreNought) {
    EXPECT_EQ(dialog_.lbldur(), "00:00");
    EXPECT_EQ(dialog_.Text1(), "00:00");
}

TEST_F(Jump2Time, goesToTheTime) {
    burn(list_.OutFileName);
    EXPECT_TRUE(dialog_.Command1_Click("1:30"));
    EXPECT_EQ(second(state_.active()), 90);
}

TEST_F(Jump2Time, aPlaceBehindTheEndIsLeftUnvisited) {
    burn(list_.OutFileName);
    EXPECT_TRUE(dialog_.Command1_Click("0:30"));
    EXPECT_TRUE(dialog_.Command1_Click("9:00"));
    EXPECT_EQ(second(state_.active()), 30);
}

TEST_F(Jump2Time, aStationHasNoOtherPlace) {
    burn(list_.OutFileName);
    advance(65'000);
    state_.RadioMode = true;
    EXPECT_EQ(dialog_.Text1(), "00:00");
    EXPECT_TRUE(dialog_.Command1_Click("1:30"));
    EXPECT_EQ(second(state_.active()), 65);
}

TEST_F(Jump2Time, whatIsNoTimeLeavesTheDialogOpen) {
    burn(list_.OutFileName);
    EXPECT_FALSE(dialog_.Command1_Click("soon"));
    EXPECT_EQ(second(state_.active()), 0);
}

TEST_F(Jump2Time, duringACrossfadeBothTracksGo) {
    burn(list_.OutFileName);
    fetchRow(track("b", {.seconds = 200}), "B");
    fade(list_.OutFileName, 5000);
    ASSERT_TRUE(crossfade_.runs());
    EXPECT_TRUE(dialog_.Command1_Click("01:00"));
    EXPECT_EQ(second(state_.PrimaryChannel), 60);
    EXPECT_EQ(second(state_.SecondaryChannel), 60);
}

TEST_F(Jump2Time, afterItOnlyTheOneThatPlays) {
    burn(list_.OutFileName);
    fetchRow(track("b", {.seconds = 200}), "B");
    fade(list_.OutFileName, 5000);
    advance(5100);
    ASSERT_FALSE(crossfade_.runs());
    sound_.calls.clear();
    EXPECT_TRUE(dialog_.Command1_Click("01:00"));
    EXPECT_EQ(std::ranges::count_if(sound_.calls,
                                    [](const std::string& call) {
                                        return call.starts_with("BASS_ChannelSetPosition(");
                                    }),
              1);
}

TEST_F(Jump2Time, withItsSwitchHoursAreShownAndJumpGoesThere) {
    state_.comfort.showsHours = true;
    fetchRow(track("long", {.seconds = 8000}), "Long");
    burn(list_.OutFileName);
    EXPECT_TRUE(dialog_.Command1_Click("1:15:00"));
    EXPECT_EQ(dialog_.lbldur(), "2:13:20");
    EXPECT_EQ(dialog_.Text1(), "1:15:00");
    EXPECT_TRUE(dialog_.Command1_Click(dialog_.Text1()));
    EXPECT_EQ(second(state_.active()), 4500);
}

TEST_F(Jump2Track, withItsSwitchTheTrackThatSoundsIsNamed) {
    state_.comfort.namesSoundingTrack = true;
    mirror_.ListIndex(0);
    rowPlayer_.List1_DblClick();
    list_.GetData(2);
    dialog_.Form_Load();
    EXPECT_EQ(dialog_.Label1(Label::playing, "Now playing:"), "Now playing: T1");
}

} // namespace
} // namespace tovik::test
