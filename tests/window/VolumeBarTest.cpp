// SPDX-License-Identifier: GPL-3.0-or-later
// The bar of the volume, its fill and its words, and the wheel.
#include "window/VolumeBar.h"

#include "support/host/SettingPlace.h"
#include "window/ViewRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using window::MainElement;

/// 16 twips, in pixels.
constexpr double kPointer = 16.0 / 15;

class VolumeBar : public ViewRig {
protected:
    VolumeBar() {
        state_.PrimaryChannel = 11;
        state_.CrossfadeLeg = 2;
        elements_.touch(MainElement::volbar).height = 201; // half a percent a pixel
    }

    [[nodiscard]] double fill() const { return elements_.get(MainElement::volbarIMG).height; }
};

TEST_F(VolumeBar, aPressSetsTheVolumeOfTheChannelWithACentredBalance) {
    volumeBar_.volbar_MouseDown(60);
    EXPECT_EQ(state_.CurrentVolume, 30);
    EXPECT_DOUBLE_EQ(fill(), 60 + kPointer);
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(11, -1, 30, 0)"));
    EXPECT_EQ(view_.last.volumeText, "Volume 30%");
}

TEST_F(VolumeBar, theModeIsReadAnewAtEachChange) {
    set("EV2", "1");
    volumeBar_.volbar_MouseDown(60);
    set("EV2", "0");
    volumeBar_.volbar_MouseMove(80);
    set("EV2", "2");
    volume_.change_volume(50, 1);
    EXPECT_THAT(sound_.calls,
                ElementsAre("BASS_SetVolume(30)", "BASS_ChannelSetAttributes(11, -1, 40, 0)",
                            "BASS_SetVolume(50)"));
}

TEST_F(VolumeBar, halvesGoToTheEvenNeighbour) {
    volumeBar_.volbar_MouseMove(61);
    EXPECT_EQ(state_.CurrentVolume, 30);
    volumeBar_.volbar_MouseMove(63);
    EXPECT_EQ(state_.CurrentVolume, 32);
}

TEST_F(VolumeBar, beyondTheEndsItIsHeld) {
    volumeBar_.volbar_MouseMove(-50);
    EXPECT_EQ(state_.CurrentVolume, 0);
    EXPECT_EQ(fill(), 0);
    volumeBar_.volbar_MouseMove(900);
    EXPECT_EQ(state_.CurrentVolume, 100);
    EXPECT_EQ(fill(), 201);
}

TEST_F(VolumeBar, aClickOnTheLastPixelIsAll) {
    volumeBar_.volbar_MouseDown(199);
    EXPECT_EQ(state_.CurrentVolume, 100) << "99.5, to the even percent";
    volumeBar_.volbar_MouseDown(0);
    EXPECT_EQ(state_.CurrentVolume, 0);
    volumeBar_.volbar_MouseDown(200);
    EXPECT_EQ(state_.CurrentVolume, 100);
    for (const double height : {24.0, 100.0}) {
        elements_.touch(MainElement::volbar).height = height;
        volumeBar_.volbar_MouseDown(height - 1);
        EXPECT_EQ(state_.CurrentVolume, 100) << height;
    }
}

TEST_F(VolumeBar, withoutALegOnlyTheFigureChanges) {
    state_.CrossfadeLeg = 0;
    volumeBar_.volbar_MouseDown(100);
    EXPECT_EQ(state_.CurrentVolume, 50);
    EXPECT_THAT(sound_.calls, IsEmpty());
}

TEST_F(VolumeBar, aPressThatFailsIsLoggedAndTold) {
    set("EV2", "loud");
    volumeBar_.volbar_MouseDown(60);
    EXPECT_THAT(logged(), ElementsAre("Type mismatch" + settingPlace(host_.folder, "EV2", "loud") +
                                      ",13,Player,volbar_mousedown"));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].title, " in sub volbar_MouseDown");
    EXPECT_EQ(state_.CurrentVolume, 80);
}

TEST_F(VolumeBar, changeVolumeMovesTheFillToTheVolume) {
    volume_.change_volume(85, -1);
    EXPECT_EQ(state_.CurrentVolume, 85);
    EXPECT_DOUBLE_EQ(fill(), 0.85 * 201);
    EXPECT_EQ(view_.last.volumeText, "Volume 85%");
    EXPECT_THAT(sound_.calls, ElementsAre("BASS_ChannelSetAttributes(11, -1, 85, 0)"));
    volume_.change_volume(130, -1);
    EXPECT_EQ(state_.CurrentVolume, 100);
    volume_.change_volume(-3, 1);
    EXPECT_EQ(state_.CurrentVolume, 0);
    EXPECT_EQ(fill(), 0);
}

TEST_F(VolumeBar, aNotchIsFivePercent) {
    volumeBar_.turn(1);
    EXPECT_EQ(state_.CurrentVolume, 85);
    volumeBar_.turn(-2);
    EXPECT_EQ(state_.CurrentVolume, 75);
    volumeBar_.turn(40);
    EXPECT_EQ(state_.CurrentVolume, 100);
    volumeBar_.turn(-10000);
    EXPECT_EQ(state_.CurrentVolume, 0);
}

TEST_F(VolumeBar, partsOfANotchAddUp) {
    volumeBar_.turn(0.5);
    EXPECT_EQ(state_.CurrentVolume, 80);
    volumeBar_.turn(0.75);
    EXPECT_EQ(state_.CurrentVolume, 85);
    volumeBar_.turn(0.75); // the quarter that was left makes it whole
    EXPECT_EQ(state_.CurrentVolume, 90);
    volumeBar_.turn(-0.25);
    EXPECT_EQ(state_.CurrentVolume, 90);
    volumeBar_.turn(-0.75);
    EXPECT_EQ(state_.CurrentVolume, 85);
}

TEST_F(VolumeBar, eachChangeIsToldToWhoStoresIt) {
    std::vector<std::string> told;
    settings_.reportChanged([&](std::string_view key) { told.emplace_back(key); });
    volumeBar_.turn(0.5);
    EXPECT_THAT(told, testing::IsEmpty());
    volumeBar_.turn(0.5);
    volumeBar_.volbar_MouseDown(3);
    volumeBar_.volbar_MouseMove(4);
    EXPECT_THAT(told, testing::ElementsAre("CVL", "CVL", "CVL"));
    volume_.apply(); // a start of a track changes nothing
    EXPECT_EQ(told.size(), 3U);
}

TEST_F(VolumeBar, wholeNotchesLeaveThePartThatIsOver) {
    volumeBar_.turn(1.75);
    EXPECT_EQ(state_.CurrentVolume, 85);
    volumeBar_.turn(0.25);
    EXPECT_EQ(state_.CurrentVolume, 90);
    volumeBar_.turn(0.75);
    EXPECT_EQ(state_.CurrentVolume, 90);
}

TEST_F(VolumeBar, theWordsTakeTheFigureWhereTheCaptionWantsIt) {
    elements_.touch(MainElement::Label3).caption = "[x] of 100: [x]";
    volumeBar_.showText();
    EXPECT_EQ(playing_.volumeText, "80 of 100: 80");
}

} // namespace
} // namespace tovik::test
