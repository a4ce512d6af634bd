// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/RotatingCaption.h"

#include "player/PlayerRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using window::rotatedLeft;

class RotatingCaption : public PlayerRig {
protected:
    RotatingCaption() { state_.ShowInTaskbar = 1; }

    window::RotatingCaption caption_{core_};
};

TEST_F(RotatingCaption, goesRoundCharacterByCharacter) {
    playing_.caption = " Söng";
    std::vector<std::string> shown;
    for (int tick = 0; tick < 5; ++tick) {
        caption_.Timer5();
        shown.push_back(view_.last.caption);
    }
    EXPECT_THAT(shown, ElementsAre("Söng ", "öng S", "ng Sö", "g Sön", " Söng"));
}

TEST_F(RotatingCaption, theMiniWindowsInMiniMode) {
    playing_.caption = "main";
    playing_.miniCaption = "mini";
    state_.MiniModeOn = true;
    caption_.Timer5();
    EXPECT_EQ(view_.last.caption, "main");
    EXPECT_EQ(view_.last.miniCaption, "inim");
}

TEST_F(RotatingCaption, withoutAButtonOnTheTaskBarThereIsNone) {
    for (const bool mini : {false, true}) {
        playing_.caption = "main";
        playing_.miniCaption = "mini";
        state_.ShowInTaskbar = 0;
        state_.MiniModeOn = mini;
        caption_.Timer5();
        EXPECT_EQ(view_.last.caption, "");
        EXPECT_EQ(view_.last.miniCaption, "mini");
    }
}

TEST_F(RotatingCaption, theWindowIsToldOnlyOfChanges) {
    for (const char* same : {"", "a", "aaa"}) {
        playing_.caption = same;
        caption_.Timer5();
        EXPECT_EQ(playing_.caption, same);
    }
    state_.ShowInTaskbar = 0;
    playing_.caption = "";
    caption_.Timer5();
    EXPECT_THAT(view_.told, IsEmpty());
}

TEST_F(RotatingCaption, withoutAButtonOnTheTaskBarItRestsUntilThereIsACaptionToTakeAway) {
    caption_.Timer5();
    EXPECT_FALSE(caption_.rests()) << "it shows, and may become longer";
    state_.ShowInTaskbar = 0;
    playing_.caption = "main";
    caption_.Timer5();
    EXPECT_FALSE(caption_.rests());
    caption_.Timer5();
    EXPECT_TRUE(caption_.rests());
    playing_.caption = "next";
    core_.screen.showTitles();
    advance(window::RotatingCaption::kTimer5Ms + 10);
    EXPECT_EQ(playing_.caption, "");
}

TEST_F(RotatingCaption, itRestsWithWhatWaitsToBePlayed) {
    playing_.caption = "waits";
    core_.screen.showTitles();
    core_.screen.holdTitles();
    advance(1000);
    EXPECT_EQ(playing_.caption, "waits");
    EXPECT_TRUE(caption_.rests());
    core_.screen.showCaptions();
    advance(1000);
    EXPECT_EQ(playing_.caption, "waits") << "as the other window takes its place";
    state_.ShowInTaskbar = 0;
    core_.screen.showCaptions();
    advance(1000);
    EXPECT_EQ(playing_.caption, "");
    state_.ShowInTaskbar = 1;
    playing_.caption = "plays";
    core_.screen.showTitles();
    advance(window::RotatingCaption::kTimer5Ms + 10);
    EXPECT_EQ(playing_.caption, "laysp");
}

TEST(RotatedLeft, bytesThatAreNoUtf8GoOneByOne) {
    EXPECT_EQ(rotatedLeft("\xE4xy"), "xy\xE4");
    EXPECT_EQ(rotatedLeft("€uro"), "uro€");
    EXPECT_EQ(rotatedLeft(""), "");
}

} // namespace
} // namespace tovik::test
