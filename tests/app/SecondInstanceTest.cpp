// SPDX-License-Identifier: GPL-3.0-or-later
// A start while another instance runs.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SecondInstance : public AppRig {
protected:
    SecondInstance() {
        host_.lock.heldByAnother = true;
        set("SHWND", "4711");
    }
};

TEST_F(SecondInstance, leavesWhenOnlyOneIsAllowed) {
    start();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(sound_.calls, ElementsAre("window hidden"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_EQ(setting("SHWND"), "4711");
}

TEST_F(SecondInstance, isAFullPlayerWhenSeveralAreAllowed) {
    set("MI", "1");
    start();
    EXPECT_FALSE(host_.endStatus);
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_TRUE(sound_.initialized);
    EXPECT_EQ(setting("SHWND"), "4711");
    EXPECT_EQ(window_.caption, "Tovik 0.1");
}

TEST_F(SecondInstance, anyOtherNumberSkipsToTheLastSteps) {
    set("MI", "2");
    set("ASOT", "1");
    set("AFS", "1");
    set("CHKU", "1");
    host_.programs.present = {"Tkstart.exe", "update.exe"};
    options_.commandLine = "\"/music/a.mp3\"";
    start();
    EXPECT_FALSE(host_.endStatus);
    EXPECT_THAT(sound_.calls, ElementsAre("on top", "caption Tovik 0.1"));
    EXPECT_THAT(host_.programs.starts, testing::SizeIs(2));
    EXPECT_FALSE(player().state().LoadFinished);
    EXPECT_EQ(player().stdSS().ListCount(), 0);
    EXPECT_EQ(setting("SHWND"), "4711");
    EXPECT_EQ(player().state().CurrentVolume, 80);
    advance(1000); // only the caption moves
    EXPECT_THAT(sound_.calls,
                testing::Each(testing::AnyOf("on top", testing::StartsWith("caption "))));
}

TEST_F(SecondInstance, aRenderLooksForNone) {
    options_.checkInstance = false;
    start();
    EXPECT_FALSE(host_.endStatus);
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_EQ(setting("SHWND"), "4711");
}

} // namespace
} // namespace tovik::test
