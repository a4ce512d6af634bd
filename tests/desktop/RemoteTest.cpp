// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Remote.h"

#include "player/PlayerRig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tovik::desktop {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kSecond = 1'000'000;

class RemoteTest : public test::PlayerRig {
protected:
    RemoteTest() {
        commands_.bind(CommandId::play, [this] { rowPlayer_.button_play(); });
        commands_.bind(CommandId::pause, [this] { transport_.button_pause(); });
        commands_.bind(CommandId::stop, [this] {
            rowPlayer_.forgetPlace();
            transport_.button_stop();
        });
        commands_.bind(CommandId::next, [this] { advance_.Next_track(); });
        commands_.bind(CommandId::previous, [this] { advance_.last_track(); });
        commands_.bind(CommandId::shuffle, [this] { advance_.button_shuffle(); });
        commands_.bind(CommandId::repeat, [this] { advance_.button_loop(); });
        remote_.changed = [this] { ++changes_; };
        remote_.seeked = [this](std::int64_t position) { seeks_.push_back(position); };
        remote_.started = [this](const std::string& path) { started_.push_back(path); };
    }

    /// Three rows of 100 s, of which the second plays.
    void playSecond() {
        addRows(3, {.seconds = 100});
        list_.SelectIndex(2);
        rowPlayer_.button_play();
        ASSERT_TRUE(state_.IsPlaying);
    }

    [[nodiscard]] playlist::Row playingRow() const { return list_.SoundingRow(); }

    int changes_ = 0;
    std::vector<std::int64_t> seeks_;
    std::vector<std::string> started_;
    commands::Commands commands_;
    std::vector<std::string> added_;
    std::function<bool(const std::string&)> isThere_ = [](const std::string&) { return true; };
    Remote remote_{{.core = core_,
                    .playback = playback_,
                    .commands = commands_,
                    .isThere = [this](const std::string& path) { return isThere_(path); },
                    .addFile =
                        [this](const std::string& path) {
                            added_.push_back(path);
                            list_.AddItem(path, path, path, "", 0);
                        }}};
};

TEST_F(RemoteTest, nothingPlays) {
    const RemoteState state = remote_.state();
    EXPECT_EQ(state.PlaybackStatus, "Stopped");
    EXPECT_EQ(state.Metadata, RemoteTrack{.trackId = kNoTrack});
    EXPECT_FALSE(state.CanPlay || state.CanPause || state.CanSeek || state.CanGoNext ||
                 state.CanGoPrevious);
    EXPECT_EQ(remote_.Position(), 0);
    EXPECT_EQ(remote_.currentTrack(), kNoTrack);
    EXPECT_FALSE(remote_.PlayPause());
    remote_.Pause();
    remote_.Stop();
    remote_.Next();
    remote_.Previous();
    remote_.Seek(kSecond);
    EXPECT_THAT(seeks_, IsEmpty());
}

TEST_F(RemoteTest, whatPlays) {
    playSecond();
    const RemoteState state = remote_.state();
    EXPECT_EQ(state.PlaybackStatus, "Playing");
    EXPECT_EQ(state.Metadata.trackId, std::string(kTrackPath) + "2");
    EXPECT_EQ(state.Metadata.length, 100 * kSecond);
    EXPECT_EQ(state.Metadata.url.substr(0, 8), "file:///");
    EXPECT_TRUE(state.CanPlay && state.CanPause && state.CanSeek && state.CanGoNext &&
                state.CanGoPrevious);
    EXPECT_GT(changes_, 0);
    EXPECT_EQ(started_.size(), 1U);
}

TEST_F(RemoteTest, factsOfTheTagAndThePicture) {
    const test::TagTexts tag{.title = "Song", .artist = "B\xE9", .album = "Album", .year = "1999"};
    ASSERT_TRUE(burn(track("a b.mp3", {.seconds = 10}, 1000, &tag)));
    remote_.setArt(remote_.path(), "file:///c.png");
    remote_.setArt("another", "file:///d.png");
    const RemoteTrack now = remote_.state().Metadata;
    EXPECT_EQ(now.title, "Song");
    EXPECT_EQ(now.artist, "B\xC3\xA9") << "valid UTF-8 whatever the tag holds";
    EXPECT_EQ(now.album, "Album");
    EXPECT_EQ(now.year, "1999");
    EXPECT_EQ(now.artUrl, "file:///c.png");
    EXPECT_THAT(now.url, testing::EndsWith("/a%20b.mp3"));
    transport_.Stop_play();
    EXPECT_EQ(remote_.state().Metadata.artUrl, "");
}

TEST_F(RemoteTest, pauseAndPlay) {
    playSecond();
    remote_.Play();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing") << "it plays already";
    changes_ = 0;
    remote_.Pause();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Paused");
    EXPECT_EQ(changes_, 1);
    EXPECT_TRUE(remote_.state().CanPause);
    remote_.Pause();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Paused");
    remote_.Play();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing");
    EXPECT_EQ(playingRow(), 2) << "it goes on and does not begin anew";
    EXPECT_TRUE(remote_.PlayPause());
    EXPECT_EQ(remote_.state().PlaybackStatus, "Paused");
    EXPECT_TRUE(remote_.PlayPause());
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing");
    remote_.Stop();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
    EXPECT_TRUE(remote_.state().CanPause) << "there is a list to play";
    EXPECT_TRUE(remote_.PlayPause());
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing");
}

TEST_F(RemoteTest, nextAndPrevious) {
    playSecond();
    remote_.Next();
    EXPECT_EQ(playingRow(), 3);
    EXPECT_FALSE(remote_.state().CanGoNext);
    remote_.Previous();
    EXPECT_EQ(playingRow(), 2);
    remote_.Previous();
    EXPECT_FALSE(remote_.state().CanGoPrevious);
    remote_.Previous();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped") << "there is none before the first";
}

TEST_F(RemoteTest, behindTheLastItStops) {
    playSecond();
    remote_.Next();
    remote_.Next();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
}

TEST_F(RemoteTest, nextWhilePausedStaysPaused) {
    playSecond();
    remote_.Pause();
    remote_.Next();
    EXPECT_EQ(playingRow(), 3);
    EXPECT_EQ(remote_.state().PlaybackStatus, "Paused");
}

TEST_F(RemoteTest, nextWhileStoppedSelects) {
    addRows(3, {.seconds = 100});
    list_.SelectIndex(1);
    remote_.Next();
    EXPECT_EQ(list_.SelectedIndex, 2);
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
    remote_.Previous();
    remote_.Previous();
    EXPECT_EQ(list_.SelectedIndex, 1);
}

TEST_F(RemoteTest, nextWhileStoppedSelectsWhatWouldFollow) {
    addRows(3, {.seconds = 100});
    list_.SelectIndex(3);
    remote_.Next();
    EXPECT_EQ(list_.SelectedIndex, 3) << "nothing follows";
    state_.RepeatOn = true;
    remote_.Next();
    EXPECT_EQ(list_.SelectedIndex, 1);
    remote_.Previous();
    EXPECT_EQ(list_.SelectedIndex, 3);
    state_.ShuffleOn = true;
    state_.comfort.remembersPicks = true;
    std::set<playlist::Row> rows;
    for (int step = 0; step < 3; ++step) {
        remote_.Next();
        rows.insert(list_.SelectedIndex);
    }
    EXPECT_EQ(rows.size(), 3U) << "each row once";
    const playlist::Row last = list_.SelectedIndex;
    remote_.Previous();
    EXPECT_NE(list_.SelectedIndex, last);
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
}

TEST_F(RemoteTest, modesDecideWhetherThereIsANext) {
    playSecond();
    remote_.Next();
    EXPECT_FALSE(remote_.state().CanGoNext);
    changes_ = 0;
    EXPECT_TRUE(remote_.setLoopStatus("Playlist"));
    EXPECT_EQ(remote_.state().LoopStatus, "Playlist");
    EXPECT_TRUE(remote_.state().CanGoNext);
    EXPECT_GT(changes_, 0);
    EXPECT_TRUE(remote_.setLoopStatus("None"));
    EXPECT_FALSE(remote_.setLoopStatus("Track"));
    EXPECT_FALSE(remote_.setLoopStatus("none"));
    EXPECT_EQ(remote_.state().LoopStatus, "None");
    remote_.setShuffle(true);
    EXPECT_TRUE(remote_.state().Shuffle);
    EXPECT_TRUE(remote_.state().CanGoNext);
    remote_.setShuffle(true);
    EXPECT_TRUE(remote_.state().Shuffle);
}

TEST_F(RemoteTest, anotherRowThatIsSelectedHasOthersBesideIt) {
    playSecond();
    int told = 0;
    remote_.rows.changed = [&told] { ++told; };
    list_.SelectIndex(3);
    EXPECT_GT(told, 0);
    EXPECT_FALSE(remote_.state().CanGoNext);
    EXPECT_TRUE(remote_.state().CanGoPrevious);
    list_.SelectIndex(1);
    EXPECT_TRUE(remote_.state().CanGoNext);
    EXPECT_FALSE(remote_.state().CanGoPrevious);
}

TEST_F(RemoteTest, aPlaceThatWaitsIsPaused) {
    addRows(3, {.seconds = 100});
    list_.RefreshTime(2, 100, "01:40");
    rowPlayer_.waitAt({2, 25});
    const RemoteState state = remote_.state();
    EXPECT_EQ(state.PlaybackStatus, "Paused");
    EXPECT_EQ(state.Metadata.title, "T2");
    EXPECT_EQ(state.Metadata.trackId, remote_.Tracks().at(1));
    EXPECT_EQ(state.Metadata.length, 100 * kSecond);
    EXPECT_FALSE(state.CanSeek) << "nothing is open yet";
    EXPECT_EQ(remote_.Position(), 25 * kSecond);
    EXPECT_TRUE(remote_.PlayPause());
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing");
    EXPECT_EQ(remote_.Position(), 25 * kSecond);
}

TEST_F(RemoteTest, aPlaceThatWaitsIsLeftByAStopOrForAnotherRow) {
    addRows(3, {.seconds = 100});
    rowPlayer_.waitAt({2, 25});
    changes_ = 0;
    remote_.Stop();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
    EXPECT_GT(changes_, 0);
    rowPlayer_.waitAt({2, 25});
    remote_.Next();
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
    EXPECT_EQ(remote_.Position(), 0);
}

TEST_F(RemoteTest, whatShuffleRemembersIsBeforeThis) {
    playSecond();
    remote_.setShuffle(true);
    EXPECT_FALSE(remote_.state().CanGoPrevious);
    state_.comfort.remembersPicks = true;
    EXPECT_TRUE(remote_.state().CanGoPrevious);
}

TEST_F(RemoteTest, volumeBothWays) {
    remote_.setVolume(0.5);
    EXPECT_EQ(state_.CurrentVolume, 50);
    EXPECT_EQ(remote_.state().Volume, 0.5);
    remote_.setVolume(7);
    EXPECT_EQ(state_.CurrentVolume, 100);
    remote_.setVolume(-1);
    EXPECT_EQ(state_.CurrentVolume, 0);
    remote_.setVolume(0.3);
    remote_.setVolume(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(state_.CurrentVolume, 0);
    changes_ = 0;
    volume_.change_volume(80, -1);
    EXPECT_EQ(remote_.state().Volume, 0.8);
    EXPECT_GT(changes_, 0);
}

TEST_F(RemoteTest, seeking) {
    playSecond();
    remote_.Seek(30 * kSecond + kSecond / 2);
    EXPECT_THAT(seeks_, ElementsAre(30 * kSecond + kSecond / 2));
    EXPECT_EQ(remote_.Position(), 30 * kSecond + kSecond / 2);
    remote_.Seek(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(remote_.Position(), 0);
    remote_.Seek(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(playingRow(), 3) << "behind the end is the next track";
}

TEST_F(RemoteTest, thePlaceThatWasReachedIsTold) {
    playSecond();
    remote_.Seek(1);
    ASSERT_EQ(seeks_.size(), 1U);
    EXPECT_EQ(seeks_.front(), 0) << "no sample begins later so soon";
    sound_.error = sound::ErrorCode::invalidPosition;
    remote_.Seek(kSecond);
    remote_.SetPosition(remote_.currentTrack(), 40 * kSecond);
    EXPECT_EQ(seeks_.size(), 1U) << "it stayed where it was";
}

TEST_F(RemoteTest, placesOfTheTrackThatSounds) {
    playSecond();
    const std::string id = remote_.currentTrack();
    remote_.SetPosition(id, 40 * kSecond);
    EXPECT_EQ(remote_.Position(), 40 * kSecond);
    for (const std::int64_t outside : {-kSecond, 101 * kSecond}) {
        remote_.SetPosition(id, outside);
    }
    remote_.SetPosition(std::string(kTrackPath) + "1", kSecond);
    EXPECT_EQ(remote_.Position(), 40 * kSecond);
    EXPECT_EQ(seeks_.size(), 1U);
}

TEST_F(RemoteTest, seekingWithTheHandIsTold) {
    playSecond();
    seek_.goTo(20);
    transport_.five_seconds_fwd();
    seek_.seek(50);
    EXPECT_THAT(seeks_, ElementsAre(20 * kSecond, 25 * kSecond, 50 * kSecond));
}

TEST_F(RemoteTest, openedAddressesAreAppendedAndPlayed) {
    addRows(1, {.seconds = 100});
    const std::string path = track("x y.mp3", {.seconds = 10});
    EXPECT_TRUE(remote_.OpenUri("file://" + host_.folder.path() + "/x%20y.mp3"));
    EXPECT_THAT(added_, ElementsAre(path));
    EXPECT_EQ(playingRow(), 2);
    for (const char* bad : {"", "x", "/etc/passwd", "ftp://a/b", "file:///a%00b", "file:///a.m3u",
                            "file:///a.PLS", "file:///etc/passwd"}) {
        EXPECT_FALSE(remote_.OpenUri(bad)) << bad;
    }
    isThere_ = [](const std::string&) { return false; };
    EXPECT_FALSE(remote_.OpenUri("file:///none.mp3"));
    EXPECT_EQ(list_.ListCount(), 2);
    isThere_ = [](const std::string&) { return true; };
    EXPECT_FALSE(remote_.OpenUri("file:///noise.mp3")) << "no decoder takes it";
}

TEST_F(RemoteTest, whileTheDiskIsAskedForOneFileNoOtherIsOpened) {
    addRows(3, {.seconds = 100});
    const std::string path = track("x.mp3", {.seconds = 10});
    int asked = 0;
    isThere_ = [this, &asked](const std::string&) {
        ++asked;
        EXPECT_TRUE(remote_.opening());
        EXPECT_FALSE(remote_.OpenUri("file:///y.mp3"));
        EXPECT_FALSE(remote_.OpenUri("http://a/b"));
        list_.Clear(); // by hand meanwhile
        addRows(1, {.seconds = 100});
        return true;
    };
    EXPECT_TRUE(remote_.OpenUri("file://" + path));
    EXPECT_EQ(asked, 1);
    EXPECT_THAT(added_, ElementsAre(path));
    EXPECT_EQ(list_.ListCount(), 2);
    EXPECT_EQ(playingRow(), 2);
    isThere_ = [](const std::string&) -> bool { throw std::runtime_error("the program ends"); };
    EXPECT_ANY_THROW(static_cast<void>(remote_.OpenUri("file://" + path)));
    EXPECT_FALSE(remote_.opening());
}

TEST_F(RemoteTest, theTracksOfTheList) {
    playSecond();
    const std::string base = kTrackPath;
    EXPECT_THAT(remote_.Tracks(), ElementsAre(base + "1", base + "2", base + "3"));
    EXPECT_EQ(remote_.trackOf(base + "1").title, "T1");
    EXPECT_EQ(remote_.trackOf(base + "2").length, 100 * kSecond);
    for (const std::string& bad :
         {std::string(), base, base + "9", base + "1x", base + "0", std::string(kNoTrack)}) {
        EXPECT_EQ(remote_.trackOf(bad).trackId, "") << bad;
        remote_.GoTo(bad);
    }
    EXPECT_EQ(playingRow(), 2);
    remote_.GoTo(base + "3");
    EXPECT_EQ(playingRow(), 3);
}

TEST_F(RemoteTest, numbersStayWithTheirRows) {
    addRows(4, {.seconds = 1});
    int told = 0;
    remote_.rows.changed = [&told] { ++told; };
    list_.MoveRow(1, 4);
    EXPECT_EQ(remote_.rows.idOf(3), 1U);
    list_.MoveRow(3, 1);
    list_.Remove(2);
    EXPECT_EQ(remote_.rows.idOf(1), 1U);
    EXPECT_EQ(remote_.rows.idOf(2), 3U);
    EXPECT_EQ(remote_.rows.rowOf(2), 0);
    list_.AddItem("a", "a", "a", "", 0);
    EXPECT_EQ(remote_.rows.idOf(4), 5U);
    list_.Clear();
    EXPECT_EQ(remote_.rows.rowOf(1), 0);
    EXPECT_EQ(remote_.rows.idOf(1), 0U);
    EXPECT_GE(told, 5);
}

TEST_F(RemoteTest, aRowWithOtherWordsIsTold) {
    addRows(3, {.seconds = 1});
    std::vector<RowIds::Id> told;
    remote_.rows.wordsChanged = [&told](RowIds::Id row) { told.push_back(row); };
    list_.RefreshTitle(2, "another");
    EXPECT_THAT(told, ElementsAre(2U));
    EXPECT_EQ(remote_.trackOf(Remote::pathOf(2)).title, "another");
}

TEST_F(RemoteTest, aFileThatDoesNotOpenLeavesNothingOfTheOneBefore) {
    const test::TagTexts tag{.title = "Song", .artist = "Band"};
    ASSERT_TRUE(burn(track("a.mp3", {.seconds = 10}, 1000, &tag)));
    remote_.setArt(remote_.path(), "file:///c.png");
    changes_ = 0;
    EXPECT_FALSE(burn(host_.folder / "none.mp3"));
    EXPECT_GT(changes_, 0);
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
    EXPECT_EQ(remote_.state().Metadata, RemoteTrack{.trackId = kNoTrack});
    EXPECT_EQ(remote_.path(), "");
}

TEST_F(RemoteTest, aFadeToAFileThatDoesNotOpenKeepsWhatSounds) {
    const std::string path = track("a.mp3", {.seconds = 10});
    fetchRow(path, "First");
    ASSERT_TRUE(burn(path));
    EXPECT_FALSE(fade(host_.folder / "none.mp3", 1000));
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing");
    EXPECT_THAT(remote_.state().Metadata.url, testing::EndsWith("/a.mp3"));
    EXPECT_EQ(remote_.state().Metadata.title, "First") << "not that of the other row";
}

TEST_F(RemoteTest, theEndOfTheListIsTold) {
    playSecond();
    remote_.Next();
    ASSERT_EQ(remote_.state().PlaybackStatus, "Playing");
    advance(99'500);
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing");
    changes_ = 0;
    advance(3'000);
    EXPECT_GT(changes_, 0);
    EXPECT_EQ(remote_.state().PlaybackStatus, "Stopped");
    EXPECT_TRUE(remote_.PlayPause());
    EXPECT_EQ(remote_.state().PlaybackStatus, "Playing") << "it begins anew";
}

TEST_F(RemoteTest, aTrackThatBeginsAnewTellsItsPlace) {
    playSecond();
    EXPECT_THAT(seeks_, IsEmpty());
    list_.SelectIndex(2);
    rowPlayer_.button_play();
    EXPECT_THAT(seeks_, ElementsAre(0));
    remote_.Next();
    EXPECT_EQ(seeks_.size(), 1U) << "another track tells it by itself";
}

TEST_F(RemoteTest, aYearIsADateAndOtherWordsAreNone) {
    for (const auto& [year, told] : {std::pair("1999", "1999"), {"99", ""}, {"abcd", ""}}) {
        const test::TagTexts tag{.title = "Song", .year = year};
        ASSERT_TRUE(burn(track(std::string(year) + ".mp3", {.seconds = 10}, 1000, &tag)));
        EXPECT_EQ(remote_.state().Metadata.year, told);
    }
}

TEST_F(RemoteTest, aPathThatIsNotWholeHasNoUrl) {
    list_.AddItem("", "song.mp3", "a", "", 0);
    list_.AddItem("", "http://a/b c", "b", "", 0);
    EXPECT_EQ(remote_.trackOf(Remote::pathOf(1)).url, "");
    EXPECT_EQ(remote_.trackOf(Remote::pathOf(2)).url, "http://a/b c");
}

TEST_F(RemoteTest, ofManyRowsThoseRoundThePlayingOneAreTold) {
    addRows(1000, {.seconds = 1});
    const std::string base = kTrackPath;
    EXPECT_EQ(remote_.Tracks().size(), 200U);
    EXPECT_EQ(remote_.Tracks().front(), base + "1");
    list_.SelectIndex(500);
    rowPlayer_.button_play();
    EXPECT_EQ(remote_.Tracks().front(), base + "400");
    EXPECT_EQ(remote_.Tracks().size(), 200U);
    list_.SelectIndex(1000);
    rowPlayer_.button_play();
    EXPECT_EQ(remote_.Tracks().back(), base + "1000");
    EXPECT_EQ(remote_.Tracks().size(), 200U);
}

} // namespace
} // namespace tovik::desktop
