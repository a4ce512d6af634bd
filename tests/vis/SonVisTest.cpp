// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SonVis.h"

#include "player/PlayerRig.h"
#include "vis/NotedArea.h"

namespace tovik::test {
namespace {

using sound::VisualNews;
using testing::ElementsAre;
using testing::IsEmpty;

class SonVis : public PlayerRig {
protected:
    static constexpr int kSpeedMs = 40;
    static constexpr sound::Handle kFirst = 101;
    static constexpr sound::Handle kSecond = 102;

    SonVis() {
        state_.PrimaryChannel = kFirst;
        state_.SecondaryChannel = kSecond;
        state_.ActiveChannel = player::ChannelSlot::primary;
        state_.IsPlaying = true;
        set("VPS", "40");
    }

    /// The plug-in has done what it was asked for, or has ended.
    void answer(VisualNews news = VisualNews::picture) {
        sound_.visual().news = news;
        ASSERT_TRUE(host_.watches.fire(sound_.descriptor()));
    }

    std::vector<std::string> calls() { return std::exchange(sound_.visualCalls, {}); }

    /// How many pictures are asked for in that time by one that answers at once.
    int asked(std::int64_t milliseconds) {
        int count = 0;
        constexpr std::int64_t kStepMs = 10;
        for (std::int64_t passed = 0; passed < milliseconds; passed += kStepMs) {
            advance(kStepMs);
            if (!sound_.visuals.empty() && sound_.visual().asked) {
                ++count;
                answer();
            }
        }
        return count;
    }

    int lost_ = 0;
    NotedArea area_;
    vis::SonVis vis_{{.core = core_,
                      .watches = host_.watches,
                      .paths = host_.paths,
                      .lost = [this] { ++lost_; }},
                     area_};
};

TEST_F(SonVis, beginsDrawsOnceAndThenTicks) {
    vis_.StartSonVis("/a/waves.svp");
    EXPECT_THAT(calls(), ElementsAre("window", "create /a/waves.svp 0 166 x 24", "ask"));
    EXPECT_EQ(sound_.visual().ini, host_.folder / "Plugins/Vis/vis.ini");
    EXPECT_EQ(sound_.visual().heard, kFirst);
    EXPECT_EQ(area_.drawn, 0);
    answer();
    EXPECT_THAT(calls(), ElementsAre("show"));
    EXPECT_EQ(area_.drawn, 1);
    EXPECT_EQ(area_.picture.pixels[5], 1U);
    EXPECT_EQ(asked(400), 10);
    EXPECT_EQ(area_.drawn, 11);
    EXPECT_EQ(area_.picture.pixels[5], 11U);
}

TEST_F(SonVis, ticksByAMessageToTheHiddenList) {
    vis_.StartSonVis("/a.svp");
    answer();
    static_cast<void>(calls());
    vis_.window().send({0x2C67});
    EXPECT_THAT(calls(), ElementsAre("ask"));
    answer();
    static_cast<void>(calls());
    vis_.window().send({0x2C68});
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(SonVis, asksForOnePictureAtATime) {
    vis_.StartSonVis("/a.svp");
    advance(1000);
    EXPECT_THAT(calls(), ElementsAre("window", "create /a.svp 0 166 x 24", "ask"));
    EXPECT_EQ(lost_, 0);
    answer();
    advance(kSpeedMs);
    EXPECT_THAT(calls(), ElementsAre("show", "ask"));
}

TEST_F(SonVis, hearsTheOtherChannelWhenThatOnePlays) {
    vis_.StartSonVis("/a.svp");
    answer();
    state_.ActiveChannel = player::ChannelSlot::secondary;
    advance(kSpeedMs);
    EXPECT_EQ(sound_.visual().heard, kSecond);
    answer();
    state_.ActiveChannel = player::ChannelSlot::none;
    state_.CrossfadeLeg = 1;
    advance(kSpeedMs);
    EXPECT_EQ(sound_.visual().heard, kSecond);
    answer();
    state_.CrossfadeLeg = 0;
    advance(kSpeedMs);
    EXPECT_EQ(sound_.visual().heard, kFirst);
    answer();
    state_.PrimaryChannel = sound::kNoHandle; // nothing to ask for, and nothing to wait for
    advance(5000);
    EXPECT_EQ(lost_, 0);
}

TEST_F(SonVis, isGivenUpAfterTwoSecondsWithoutAPicture) {
    vis_.StartSonVis("/a.svp");
    advance(1990);
    EXPECT_TRUE(vis_.running());
    EXPECT_EQ(lost_, 0);
    advance(10);
    EXPECT_FALSE(vis_.running());
    EXPECT_EQ(lost_, 1);
    EXPECT_EQ(area_.cleared, 1);
    EXPECT_EQ(host_.watches.count(), 0U);
    EXPECT_TRUE(vis_.rests());
    advance(10'000);
    vis_.stir();
    EXPECT_EQ(lost_, 1);
    EXPECT_FALSE(vis_.running());
    EXPECT_TRUE(vis_.rests());
}

TEST_F(SonVis, isGivenUpAlsoWhenNobodySeesIt) {
    vis_.StartSonVis("/a.svp");
    answer();
    advance(kSpeedMs);
    area_.seen = false;
    advance(2000);
    EXPECT_EQ(lost_, 1);
}

TEST_F(SonVis, isGivenUpWhenItHangsBeforeAnythingPlays) {
    state_.IsPlaying = false;
    vis_.StartSonVis("/a.svp");
    EXPECT_FALSE(sound_.visual().asked);
    advance(1990);
    EXPECT_EQ(lost_, 0);
    advance(10);
    EXPECT_EQ(lost_, 1);
    EXPECT_TRUE(sound_.visuals.empty());
}

TEST_F(SonVis, isLeftAloneWhenItHasBegunAndNothingPlays) {
    state_.IsPlaying = false;
    vis_.StartSonVis("/a.svp");
    sound_.visual().took = true;
    answer(VisualNews::nothing);
    advance(10'000);
    EXPECT_EQ(lost_, 0);
}

TEST_F(SonVis, isGivenUpWhenItHangsInAClickOrInAnotherSize) {
    NotedArea other;
    other.picture = {.width = 70, .height = 16, .pixels = std::vector<std::uint32_t>(70 * 16)};
    const auto click = [this] { vis_.click(1, 2); };
    const auto size = [this, &other] { vis_.drawIn(other); };
    int times = 0;
    for (const std::function<void()>& hang : {std::function<void()>(click), {size}}) {
        state_.IsPlaying = true;
        vis_.StartSonVis("/a.svp");
        answer();
        state_.IsPlaying = false;
        hang();
        advance(1990);
        EXPECT_EQ(lost_, times);
        advance(10);
        EXPECT_EQ(lost_, ++times);
    }
}

TEST_F(SonVis, clicksDoNotMakeItsTimeLonger) {
    vis_.StartSonVis("/a.svp");
    for (int i = 0; i < 19; ++i) {
        advance(100);
        vis_.click(1, 1);
        answer(VisualNews::nothing);
    }
    EXPECT_EQ(lost_, 0);
    advance(100);
    EXPECT_EQ(lost_, 1);
}

TEST_F(SonVis, isNotGivenUpForWhatWasHeldUpHere) {
    vis_.StartSonVis("/a.svp");
    sound_.visual().news = VisualNews::picture; // lies there, but this thread had no time for it
    advance(2000);
    EXPECT_EQ(lost_, 0);
    EXPECT_EQ(area_.drawn, 1);
    EXPECT_GT(asked(400), 5);
}

TEST_F(SonVis, isGivenUpWhenItsProcessEnds) {
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(asked(200), 6);
    answer(VisualNews::ended);
    EXPECT_EQ(lost_, 1);
    EXPECT_FALSE(vis_.running());
    EXPECT_TRUE(sound_.visuals.empty());
}

TEST_F(SonVis, thatCannotBeCreatedIsLost) {
    sound_.canDraw = false;
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(lost_, 1);
    EXPECT_TRUE(vis_.rests());
}

TEST_F(SonVis, thatCannotBeReachedIsLostAtOnce) {
    sound_.canTalk = false;
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(lost_, 1);
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_EQ(host_.watches.count(), 0U);
}

TEST_F(SonVis, withoutASpeedNothingIsBegun) {
    vis_.StartSonVis("/a.svp");
    answer();
    static_cast<void>(calls());
    set("VPS", "soon");
    EXPECT_THROW(vis_.StartSonVis("/b.svp"), base::RuntimeError);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_EQ(asked(400), 10); // the other one goes on
}

TEST_F(SonVis, aStartTakesThePlaceOfWhatRuns) {
    vis_.StartSonVis("/a.svp");
    answer();
    static_cast<void>(calls());
    vis_.StartSonVis("/b.svp");
    EXPECT_THAT(calls(), ElementsAre("window", "free", "create /b.svp 0 166 x 24", "ask"));
    EXPECT_EQ(sound_.visuals.size(), 1U);
    EXPECT_EQ(vis_.path(), "/b.svp");
}

TEST_F(SonVis, aStopClearsAndEndsTheTickAndIsHarmlessTwice) {
    vis_.stopSonVis();
    vis_.set_builtin_vis();
    EXPECT_EQ(lost_, 0);
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(asked(100), 3);
    const int cleared = area_.cleared;
    vis_.stopSonVis();
    EXPECT_EQ(area_.cleared, cleared + 1);
    EXPECT_EQ(asked(400), 0);
    EXPECT_TRUE(vis_.running()); // it is there for the next track
    vis_.stopSonVis();
    vis_.stir();
    EXPECT_EQ(asked(400), 10);
}

TEST_F(SonVis, theBuiltinOneOnlyEndsTheTick) {
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(asked(100), 3);
    const int cleared = area_.cleared;
    static_cast<void>(calls());
    vis_.set_builtin_vis();
    EXPECT_EQ(asked(400), 0);
    EXPECT_EQ(area_.cleared, cleared);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(SonVis, restsWhilePausedStoppedOrUnseen) {
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(asked(400), 11);
    state_.IsPaused = true;
    EXPECT_EQ(asked(400), 0);
    EXPECT_TRUE(vis_.rests());
    state_.IsPaused = false;
    vis_.stir();
    EXPECT_EQ(asked(400), 10);
    area_.seen = false;
    EXPECT_EQ(asked(400), 0);
    EXPECT_TRUE(vis_.rests());
    area_.seen = true;
    vis_.stir();
    EXPECT_EQ(asked(400), 10);
    state_.IsPlaying = false;
    EXPECT_EQ(asked(400), 0);
    EXPECT_TRUE(vis_.rests());
}

TEST_F(SonVis, speedsCountAsThoseOfTheSpectrum) {
    vis_.StartSonVis("/a.svp");
    for (const auto& [speed, pictures] : {std::pair(9, 100), std::pair(-3, 100), std::pair(100, 10),
                                          std::pair(501, 2), std::pair(0, 0)}) {
        vis_.setSpeed(speed);
        static_cast<void>(asked(10)); // what was on its way
        vis_.setSpeed(speed);
        EXPECT_EQ(asked(1000), pictures) << speed;
    }
    set("VPS", "200");
    vis_.StartSonVis("/a.svp");
    EXPECT_EQ(asked(1000), 6); // one at the start
}

TEST_F(SonVis, isClickedWhileItIsShown) {
    vis_.click(1, 2);
    EXPECT_THAT(calls(), IsEmpty());
    vis_.StartSonVis("/a.svp");
    static_cast<void>(calls());
    vis_.click(3, 4);
    EXPECT_THAT(calls(), ElementsAre("click 3 4"));
    vis_.stopSonVis();
    vis_.click(3, 4);
    EXPECT_THAT(calls(), ElementsAre());
}

TEST_F(SonVis, takesTheSizeOfAnotherArea) {
    vis_.StartSonVis("/a.svp");
    answer();
    NotedArea screen;
    screen.picture = {.width = 320, .height = 200, .pixels = std::vector<std::uint32_t>(64'000)};
    static_cast<void>(calls());
    vis_.drawIn(screen);
    EXPECT_THAT(calls(), ElementsAre("size 320 x 200", "ask"));
    const int drawn = area_.drawn;
    EXPECT_EQ(asked(100), 3);
    EXPECT_EQ(screen.drawn, 3);
    EXPECT_EQ(area_.drawn, drawn);
    vis_.drawIn(area_);
    EXPECT_EQ(asked(100), 4); // at once, too, which is between two ticks this time
    EXPECT_EQ(screen.drawn, 3);
}

TEST_F(SonVis, thatCannotTakeASizeIsLost) {
    vis_.StartSonVis("/a.svp");
    answer();
    NotedArea screen;
    screen.picture = {.width = 9000, .height = 2, .pixels = std::vector<std::uint32_t>(18'000)};
    sound_.canResize = false;
    vis_.drawIn(screen);
    EXPECT_EQ(lost_, 1);
    EXPECT_TRUE(sound_.visuals.empty());
    EXPECT_TRUE(vis_.rests());
}

TEST_F(SonVis, drawsAsFineAsTheAreaShows) {
    area_.finest = 2;
    vis_.StartSonVis("/a.svp");
    EXPECT_THAT(calls(), ElementsAre("window", "create /a.svp 0 332 x 48", "ask"));
    answer();
    EXPECT_EQ(area_.picture.width, 332);
    EXPECT_EQ(area_.picture.density, 2);
    vis_.click(3, 4);
    EXPECT_THAT(calls(), ElementsAre("show", "click 6 8"));
    answer(VisualNews::nothing);
    advance(kSpeedMs);
    static_cast<void>(calls());
    area_.finest = 1; // on another screen
    answer();         // has the old size
    EXPECT_THAT(calls(), IsEmpty());
    advance(kSpeedMs);
    EXPECT_THAT(calls(), ElementsAre("size 166 x 24", "ask"));
    answer();
    EXPECT_EQ(area_.picture.width, 166);
}

/// What stands in the file beside a plug-in, and whether that begins in the mini window.
struct RoomRow {
    const char* text;
    bool begins;
};

TEST_F(SonVis, oneThatWantsRoomDoesNotBeginInTheMiniWindow) {
    const std::string path = host_.folder / "plugins/a.svp";
    state_.MiniModeOn = true;
    vis_.StartSonVis(path); // nothing beside it
    EXPECT_TRUE(vis_.running());
    for (const auto& [text, begins] :
         {RoomRow{"true", false}, RoomRow{" TRUE ", false}, RoomRow{"1", false},
          RoomRow{"-1", false}, RoomRow{"0", true}, RoomRow{"false", true}, RoomRow{"", true},
          RoomRow{"yes", true}}) {
        host_.folder.write("plugins/tpcf.ini", "[Size]\r\n960x720=" + std::string(text) + "\r\n");
        static_cast<void>(calls());
        vis_.StartSonVis(path);
        EXPECT_EQ(!calls().empty(), begins) << text;
    }
    host_.folder.write("plugins/tpcf.ini", "[Size]\r\n960x720=true\r\n");
    state_.MiniModeOn = false;
    static_cast<void>(calls());
    vis_.StartSonVis(path);
    EXPECT_FALSE(calls().empty());
}

TEST_F(SonVis, sonfixSwitchesAnInputOn) {
    vis::sonfix(sound_);
    vis::sonfix(sound_, 2);
    EXPECT_THAT(sound_.calls,
                ElementsAre("BASS_RecordSetInput(131072)", "BASS_RecordSetInput(131074)"));
}

} // namespace
} // namespace tovik::test
