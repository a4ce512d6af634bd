// SPDX-License-Identifier: GPL-3.0-or-later
// A start while another instance runs.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = host::InstanceMessageKind;

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

TEST_F(SecondInstance, withoutAFileItBringsTheOtherToTheFront) {
    options_.activationToken = "token";
    start();
    EXPECT_THAT(host_.messages.sent, ElementsAre(host::InstanceMessage{Kind::toTheFront, "token"}));
    EXPECT_EQ(host_.endStatus, 0);
}

class HandedOver : public SecondInstance,
                   public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(HandedOver, isTheFirstNameWhateverSwitchStandsBeforeIt) {
    options_.commandLine = GetParam().first;
    start();
    EXPECT_THAT(host_.messages.sent,
                ElementsAre(host::InstanceMessage{Kind::file, GetParam().second}));
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(sound_.calls, ElementsAre("window hidden"));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, HandedOver,
    testing::Values(std::pair{"\"/music/a b.mp3\"", "/music/a b.mp3"},
                    std::pair{R"(/Play "/music/a.mp3")", "/music/a.mp3"},
                    std::pair{R"(/ADD "/music/a.mp3" "/music/b.mp3")", "/music/a.mp3"},
                    std::pair{R"(/Open "http://here/radio")", "http://here/radio"},
                    std::pair{"\"/music/\x1F"
                              "a\x1F.mp3\"",
                              "/music/\"a\".mp3"},
                    std::pair{"/x", "x"}));

TEST_F(SecondInstance, withComfortTheWholeLineGoesOver) {
    put("CMF10", "1");
    options_.commandLine = R"(/ADD "/music/a.mp3" "/music/b.mp3")";
    start();
    EXPECT_THAT(host_.messages.sent,
                ElementsAre(host::InstanceMessage{Kind::commandLine, options_.commandLine}));
    endPlayer();
    host_.messages.sent.clear();
    options_.commandLine = "/ADD"; // no file: somebody wants to see the player
    options_.activationToken = "token";
    start();
    EXPECT_THAT(host_.messages.sent, ElementsAre(host::InstanceMessage{Kind::toTheFront, "token"}));
}

TEST_F(SecondInstance, aLongNameLosesNothing) {
    const std::string path = "/" + std::string(300, 'a');
    options_.commandLine = "\"" + path + "\"";
    start();
    EXPECT_THAT(host_.messages.sent, ElementsAre(host::InstanceMessage{Kind::longFile, path}));
}

TEST_F(SecondInstance, endsAlsoWhenTheOtherDoesNotAnswer) {
    host_.messages.answers = false;
    options_.commandLine = "\"/music/a.mp3\"";
    start();
    EXPECT_EQ(host_.endStatus, 0);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(SecondInstance, isTheFirstOnceTheOtherHasEnded) {
    host_.messages.whileSending = [this] { host_.lock.heldByAnother = false; };
    host_.messages.answers = false;
    options_.commandLine = "\"" + track("song.mp3") + "\"";
    start();
    EXPECT_FALSE(host_.endStatus);
    EXPECT_TRUE(player().state().IsPlaying);
    EXPECT_TRUE(static_cast<bool>(host_.messages.keep));
    EXPECT_EQ(setting("SHWND"), std::to_string(RecordingWindow::kNumber));
}

TEST_F(SecondInstance, hearsNothingItself) {
    set("MI", "1");
    start();
    EXPECT_FALSE(static_cast<bool>(host_.messages.keep));
    EXPECT_THAT(host_.messages.sent, IsEmpty());
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
