// SPDX-License-Identifier: GPL-3.0-or-later
// The mini window in the whole player: entering and leaving, what it shows, what its elements do.
#include "app/PresenceRig.h"
#include "skin/SkinPackage.h"
#include "support/skin/TestSkin.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using ui::MouseButton;
using window::MainElement;
using window::MiniElement;

class MiniMode : public PresenceRig {
protected:
    void enter() {
        if (!player().state().LoadFinished) {
            start();
        }
        run(CommandId::miniMode);
        ASSERT_TRUE(player().state().MiniModeOn);
        static_cast<void>(windowCalls());
    }

    [[nodiscard]] window::MiniInput& input() { return player().presence().mini.input; }
};

TEST_F(MiniMode, oneWindowGivesWayToTheOther) {
    start();
    static_cast<void>(windowCalls());
    run(CommandId::miniMode);
    for (const host::MessageBox& box : host_.dialogs.boxes) {
        ADD_FAILURE() << box.text;
    }
    EXPECT_THAT(windowCalls(), ElementsAre("mini on the task bar", "window hidden",
                                           "mini not on top", "mini shown"));
    EXPECT_TRUE(player().state().MiniModeOn);
    EXPECT_TRUE(player().state().MiniModeShown);
    EXPECT_TRUE(player().commands().checked(CommandId::miniMode));
    run(CommandId::miniMode);
    EXPECT_THAT(windowCalls(), ElementsAre("mini hidden", "window shown"));
    EXPECT_FALSE(player().state().MiniModeOn);
    EXPECT_FALSE(player().state().MiniModeShown);
}

TEST_F(MiniMode, theFirstSmallButtonLeadsBack) {
    enter();
    click(MiniElement::Image1, 0);
    EXPECT_FALSE(player().state().MiniModeOn);
    EXPECT_THAT(windowCalls(), ElementsAre("mini hidden", "window shown"));
}

TEST_F(MiniMode, isOnTopAndOnTheTaskBarAsTheMainWindow) {
    set("ASOT", "1");
    set("SHI", "01");
    start();
    static_cast<void>(windowCalls());
    run(CommandId::miniMode);
    EXPECT_THAT(windowCalls(), ElementsAre("mini not on the task bar", "window hidden",
                                           "mini on top", "mini shown"));
    run(CommandId::alwaysOnTop);
    EXPECT_THAT(windowCalls(), ElementsAre("mini not on top", "not on top"));
    run(CommandId::alwaysOnTop);
    EXPECT_THAT(windowCalls(), ElementsAre("mini on top", "on top"));
}

TEST_F(MiniMode, aVisualisationThatFailsKeepsNoWindowAway) {
    set("CVP", "3");
    sound_.shelf = {{"/own/a.svp", "Waves"}};
    play();
    EXPECT_TRUE(host_.watches.fire(FakeVisuals::listDescriptor()));
    ASSERT_TRUE(player().state().VisOn);
    takeOut("VPS");
    for (const bool comes : {true, false}) {
        SCOPED_TRACE(comes);
        player().visuals().sonVis.free();
        static_cast<void>(windowCalls());
        host_.dialogs.boxes.clear();
        run(CommandId::miniMode);
        EXPECT_EQ(player().state().MiniModeOn, comes);
        EXPECT_EQ(player().state().MiniModeShown, comes);
        EXPECT_EQ(windowCalls().back(), comes ? "mini shown" : "window shown");
        EXPECT_EQ(host_.dialogs.boxes.size(), comes ? 1U : 0U) << "it is told, once";
        EXPECT_EQ(logged().size(), comes ? 1U : 2U);
    }
}

TEST_F(MiniMode, aPanelThatIsChosenBringsTheMainWindow) {
    enter();
    run(CommandId::equalizerPanel);
    EXPECT_FALSE(player().state().MiniModeOn);
    EXPECT_EQ(player().state().CurrentPanel, 2);
}

TEST_F(MiniMode, withoutItsSkinTheMainWindowStaysAndTheFileIsNamed) {
    std::filesystem::remove(host_.folder / kSkin); // the link to the skin of all tests
    writeTestSkin(host_.folder.path());
    start();
    std::filesystem::remove(host_.folder / "skins/CurrentSkin/minmode_9.bmp");
    static_cast<void>(windowCalls());
    run(CommandId::miniMode);
    EXPECT_FALSE(player().state().MiniModeOn);
    EXPECT_THAT(windowCalls(), Not(Contains("window hidden")));
    ASSERT_FALSE(host_.dialogs.boxes.empty());
    EXPECT_THAT(host_.dialogs.boxes.back().text, testing::HasSubstr("minmode_9.bmp"));
}

TEST_F(MiniMode, aSkinThatIsOlderThanTheWindowGetsItsPictures) {
    std::filesystem::remove(host_.folder / kSkin);
    writeTestSkin(host_.folder.path());
    const std::string folder = host_.folder / "skins/CurrentSkin/";
    std::vector<skin::SkinFile> files;
    for (const window::MiniPicture& row : window::miniBindings()) {
        const std::string name = std::string(row.name) + ".bmp";
        files.push_back({name, host_.folder.read("skins/CurrentSkin/" + name)});
        std::filesystem::remove(folder + name);
    }
    host_.folder.write("shipped/skins/base.tsf", skin::skinPackage(files, ""));
    options_.shippedFolder = host_.folder / "shipped";
    enter();
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_TRUE(mini(MiniElement::picBackground).picture);
    EXPECT_TRUE(std::filesystem::exists(folder + "minmode_9.bmp"));
}

TEST_F(MiniMode, readsItsSkinAnewEachTime) {
    std::filesystem::remove(host_.folder / kSkin);
    writeTestSkin(host_.folder.path());
    enter();
    const std::string file = host_.folder / "skins/CurrentSkin/minmode_play.bmp";
    const auto& store = player().view().pictures;
    const std::uint32_t before = store.find(mini(MiniElement::Image4, 1).picture)->pixels.front();
    run(CommandId::miniMode);
    std::ofstream(file, std::ios::binary) << skin::plainBitmap(14, 11, 0x123456);
    run(CommandId::miniMode);
    EXPECT_NE(store.find(mini(MiniElement::Image4, 1).picture)->pixels.front(), before);
    EXPECT_EQ(mini(MiniElement::Image4, 1).width, 14);
    // The ones behind it stand right of it.
    EXPECT_EQ(mini(MiniElement::Image4, 2).left, 52 + 14);
    EXPECT_EQ(mini(MiniElement::Image4, 5).left, 52 + 14 + 36);
}

TEST_F(MiniMode, showsWhatTheMainWindowShows) {
    play();
    set("TMD", "0");
    run(CommandId::shuffle);
    goTo(3);
    advance(600);
    enter();
    EXPECT_EQ(mini(MiniElement::songname).caption, player().ground().screen.playing.scrollerText);
    EXPECT_EQ(mini(MiniElement::timed, 5).caption, "3");
    EXPECT_EQ(mini(MiniElement::timed, 5).picture, mini(MiniElement::Digit, 3).picture);
    EXPECT_FALSE(mini(MiniElement::timed, 0).visible);
    EXPECT_EQ(mini(MiniElement::shwchange).caption, player().ground().screen.playing.volumeText);
    EXPECT_TRUE(mini(MiniElement::Shuffle).visible);
    EXPECT_FALSE(mini(MiniElement::ShuffleDown).visible);
    EXPECT_EQ(mini(MiniElement::loopImg).visible, player().state().RepeatOn);
    EXPECT_EQ(mini(MiniElement::LoopImg2).visible, !player().state().RepeatOn);
    EXPECT_EQ(mini(MiniElement::Shuffle).picture,
              player().elements().get(MainElement::Shuffle).picture);
    EXPECT_EQ(window_.miniWindow.caption, player().ground().screen.playing.miniCaption);
    goTo(4);
    advance(600);
    EXPECT_EQ(mini(MiniElement::timed, 5).caption, "4");
}

TEST_F(MiniMode, whatIsPlayedFillsTheBar) {
    play(100);
    enter();
    goTo(10);
    advance(1100);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 10);
    run(CommandId::miniMode);
    goTo(30);
    advance(1100);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 10)
        << "nothing is moved on a window that is not there";
    run(CommandId::miniMode);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 30);
}

TEST_F(MiniMode, theOutlineIsThatOfItsGround) {
    enter();
    ASSERT_TRUE(window_.miniWindow.outline.region);
    EXPECT_TRUE(window_.miniWindow.outline.region->contains(159, 124));
    EXPECT_FALSE(window_.miniWindow.outline.region->contains(160, 124));
}

TEST_F(MiniMode, everyButtonDoesWhatItsTwinDoes) {
    std::string list = "#EXTM3U\n";
    for (const std::string name : {"T1", "T2", "T3"}) {
        list += "#EXTINF:60," + name + "\n" + track(name + ".mp3", {.seconds = 60}) + "\n";
    }
    options_.commandLine = '"' + host_.folder.write("list.m3u", list) + '"';
    start();
    enter();
    const std::string& title = player().state().CurrentTitle;
    ASSERT_EQ(title, "T1");
    click(MiniElement::Image4, 4);
    EXPECT_EQ(title, "T2");
    click(MiniElement::Image4, 0);
    EXPECT_EQ(title, "T1");
    EXPECT_TRUE(host_.dialogs.openDialogs.empty());
    click(MiniElement::Image4, 5);
    EXPECT_EQ(host_.dialogs.openDialogs.size(), 1U);
    click(MiniElement::Image4, 2);
    EXPECT_TRUE(player().state().IsPaused);
    click(MiniElement::Image4, 1);
    EXPECT_FALSE(player().state().IsPaused);
    click(MiniElement::Image4, 3);
    EXPECT_FALSE(player().state().IsPlaying);
    const bool shuffled = player().state().ShuffleOn;
    click(shuffled ? MiniElement::Shuffle : MiniElement::ShuffleDown);
    EXPECT_EQ(player().state().ShuffleOn, !shuffled);
    EXPECT_EQ(mini(MiniElement::Shuffle).visible, !shuffled);
    click(shuffled ? MiniElement::ShuffleDown : MiniElement::Shuffle);
    EXPECT_EQ(player().state().ShuffleOn, shuffled);

    struct ModeLamps {
        bool player::PlayerState::*flag;
        MiniElement on;
        MiniElement off;
    };

    for (const ModeLamps& lamps :
         {ModeLamps{&player::PlayerState::RepeatOn, MiniElement::loopImg, MiniElement::LoopImg2},
          ModeLamps{&player::PlayerState::CrossfadeOn, MiniElement::CFD, MiniElement::CFD2},
          ModeLamps{&player::PlayerState::SilenceSkipOn, MiniElement::Sld, MiniElement::sld2}}) {
        SCOPED_TRACE(static_cast<int>(lamps.on));
        for (const bool on : {true, false}) {
            click(on ? lamps.off : lamps.on);
            EXPECT_EQ(player().state().*lamps.flag, on);
            EXPECT_EQ(mini(lamps.on).visible, on);
            EXPECT_EQ(mini(lamps.off).visible, !on);
        }
    }
    click(MiniElement::Image1, 2);
    EXPECT_TRUE(host_.closing.leaveIfAsked());
}

/// By the button of that window or by the main one's.
class EndFromMini : public MiniMode, public testing::WithParamInterface<bool> {};

TEST_P(EndFromMini, keepsWhatTheMainWindowsCloseKeeps) {
    set("CVL", "80");
    start();
    advance(200); // the list of the last session is there
    player().stdSS().AddItem("", "/kept.mp3", "Kept", "00:03", 3);
    const bool shuffled = player().state().ShuffleOn;
    if (GetParam()) {
        enter();
    }
    run(CommandId::shuffle);
    player().music().playback.volume.change_volume(35, 0);
    if (GetParam()) {
        click(MiniElement::Image1, 2);
    } else {
        run(CommandId::exit);
    }
    ASSERT_TRUE(host_.closing.leaveIfAsked());
    player().kill_me();
    EXPECT_EQ(setting("CVL"), "35");
    EXPECT_EQ(setting("X"), std::to_string(window_.x * 15));
    EXPECT_EQ(setting("SHF"), shuffled ? "0" : "1");
    EXPECT_THAT(host_.folder.read(kList), testing::EndsWith("/kept.mp3\r\n"));
    EXPECT_FALSE(area_.added());
    EXPECT_THAT(logged(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Mini, EndFromMini, testing::Bool());

TEST_F(MiniMode, aReleaseBesideTheButtonDoesNothing) {
    play();
    enter();
    input().mouseDown(on(MiniElement::Image4, 3));
    ui::PointerEvent beside = on(MiniElement::Image4, 3);
    beside.windowX += 40;
    input().mouseUp(beside);
    EXPECT_TRUE(player().state().IsPlaying);
}

TEST_F(MiniMode, aDoubleClickOnTheDigitsTurnsTheClockOnBothWindows) {
    play();
    enter();
    input().doubleClick(on(MiniElement::timed, 4));
    EXPECT_EQ(player().state().TimeDisplayMode, 1);
    EXPECT_TRUE(mini(MiniElement::timed, 0).visible);
    EXPECT_TRUE(player().elements().get(MainElement::timed, 0).visible);
    input().doubleClick(on(MiniElement::timed, 0));
    EXPECT_EQ(player().state().TimeDisplayMode, 0);
    EXPECT_FALSE(mini(MiniElement::timed, 0).visible);
}

TEST_F(MiniMode, theSmallButtonsHaveAFaceUnderTheMouse) {
    player().presence().mini.windowPicture = [](std::string_view name) {
        return name.ends_with("_over") ? skin::plainBitmap(10, 10, 0xFF0000)
                                       : skin::plainBitmap(10, 10, 0x0000FF);
    };
    enter();
    const ui::Picture own = mini(MiniElement::Image1, 1).picture;
    EXPECT_EQ(own, mini(MiniElement::tmp, 1).picture);
    input().pointerEntered(ui::addressOf(MiniElement::Image1, 1));
    EXPECT_EQ(mini(MiniElement::Image1, 1).picture, mini(MiniElement::Image2, 1).picture);
    EXPECT_NE(mini(MiniElement::Image1, 1).picture, own);
    input().pointerEntered(ui::addressOf(MiniElement::Image1, 2));
    EXPECT_EQ(mini(MiniElement::Image1, 1).picture, own);
    ui::PointerEvent ground = at(MiniElement::picBackground, 0, 150, 120, MouseButton::None);
    input().mouseMove(ground);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(mini(MiniElement::Image1, i).picture, mini(MiniElement::tmp, i).picture) << i;
    }
}

TEST_F(MiniMode, theWindowIsTakenByWhatHasNothingElseToDo) {
    enter();
    int expected = 0;
    for (const MiniElement name :
         {MiniElement::picBackground, MiniElement::Picture1, MiniElement::musicinfo_img,
          MiniElement::shwchange, MiniElement::songname, MiniElement::Stereo_img}) {
        input().mouseMove(on(name));
        EXPECT_EQ(window_.miniWindow.drags, ++expected) << static_cast<int>(name);
    }
    for (const MiniElement name : {MiniElement::timed, MiniElement::posbar, MiniElement::volbar,
                                   MiniElement::Image4, MiniElement::Shuffle}) {
        input().mouseMove(on(name));
        EXPECT_EQ(window_.miniWindow.drags, expected) << static_cast<int>(name);
    }
}

TEST_F(MiniMode, theKeysAreThoseOfTheMainWindow) {
    enter();
    EXPECT_TRUE(input().keyDown({.code = 'J'}));
    EXPECT_THAT(windows_.opened, ElementsAre(window::WindowId::musicSearch));
    EXPECT_TRUE(input().keyDown({.code = 'W', .modifiers = {.control = true}}));
    EXPECT_FALSE(player().state().MiniModeOn);
    EXPECT_FALSE(input().keyDown({.code = 'Q'}));
}

TEST_F(MiniMode, aWindowThatIsClosedEndsTheProgram) {
    enter();
    input().closeRequested();
    EXPECT_TRUE(host_.closing.leaveIfAsked());
}

struct MiniBarPlace {
    double x;
    double percent;
};

class MiniPositionBar : public MiniMode, public testing::WithParamInterface<MiniBarPlace> {};

TEST_P(MiniPositionBar, seeksToSixteenPixelsMore) {
    play(1000);
    enter();
    dragTo(GetParam().x);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, GetParam().percent);
    EXPECT_EQ(player().music().playback.seek.second(),
              static_cast<std::int32_t>(GetParam().percent * 10));
}

INSTANTIATE_TEST_SUITE_P(Mini, MiniPositionBar,
                         testing::Values(MiniBarPlace{-20, 0}, MiniBarPlace{-16, 0},
                                         MiniBarPlace{-10, 6}, MiniBarPlace{0, 16},
                                         MiniBarPlace{34, 50}, MiniBarPlace{83, 99},
                                         MiniBarPlace{84, 100}, MiniBarPlace{90, 100}));

TEST_F(MiniMode, aPressBehindTheEndOfTheBarEndsTheTrack) {
    play(1000);
    enter();
    dragTo(90);
    sound_.elapse(1500);
    advance(1500);
    EXPECT_FALSE(player().music().sounds());
}

TEST_F(MiniMode, theMarkStaysOnABarOfAnotherWidth) {
    play(1000);
    enter();
    window::MiniElements& elements = player().presence().mini.elements;
    elements.touch(MiniElement::posbar).width = 50;
    dragTo(60);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 50);
    EXPECT_EQ(player().music().playback.seek.second(), 1000);
    dragTo(9);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 25);
    EXPECT_EQ(player().music().playback.seek.second(), 500);
    elements.touch(MiniElement::posbar).width = 200;
    dragTo(150);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 100) << "the limits are those of a bar of 100";
    EXPECT_EQ(player().music().playback.seek.second(), 500);
}

TEST_F(MiniMode, theLastSixteenPixelsOfTheBarAreTheEnd) {
    EXPECT_DOUBLE_EQ(window::playedAt(90), 100);
    EXPECT_DOUBLE_EQ(window::playedAt(84), 100);
    EXPECT_DOUBLE_EQ(window::playedAt(84.5), 100);
    EXPECT_DOUBLE_EQ(window::playedAt(-20), 0);
    EXPECT_DOUBLE_EQ(window::playedAt(-16), 0);
}

TEST_F(MiniMode, theClockWaitsForTheHandOnTheBar) {
    play(1000);
    enter();
    const double left = mini(MiniElement::posbar).left;
    input().mouseDown(at(MiniElement::posbar, 0, left + 40, 28));
    EXPECT_FALSE(player().music().playback.clock.watchesTrack());
    input().mouseUp(at(MiniElement::posbar, 0, left + 40, 28));
    EXPECT_TRUE(player().music().playback.clock.watchesTrack());
}

TEST_F(MiniMode, withoutATrackTheBarStays) {
    enter();
    dragTo(40);
    EXPECT_DOUBLE_EQ(mini(MiniElement::track).width, 0);
}

TEST_F(MiniMode, leavingWhileNoVisualisationIsChosenStartsNone) {
    set("CVP", "-1");
    play();
    enter();
    run(CommandId::miniMode);
    EXPECT_TRUE(player().visuals().spectrum.rests());
}

TEST_F(MiniMode, theSpectrumGoesAlong) {
    set("CVP", "0");
    set("VPS", "100");
    play();
    sound_.spectra[player().state().active()].fill(0.5F);
    advance(300);
    EXPECT_TRUE(player().elements().get(MainElement::Picture1).picture);
    enter();
    EXPECT_FALSE(player().elements().get(MainElement::Picture1).picture);
    advance(300);
    ASSERT_TRUE(mini(MiniElement::Picture1).picture);
    const ui::PixelImage* drawn =
        player().view().pictures.find(mini(MiniElement::Picture1).picture);
    EXPECT_EQ(drawn->width, 70);
    EXPECT_EQ(drawn->height, 16);
    run(CommandId::miniMode);
    EXPECT_FALSE(mini(MiniElement::Picture1).picture);
    advance(300);
    EXPECT_TRUE(player().elements().get(MainElement::Picture1).picture);
}

TEST_F(MiniMode, anotherLanguageReachesItsWords) {
    enter();
    const std::string before = mini(MiniElement::Image4, 1).tooltip;
    EXPECT_FALSE(before.empty());
    set("CLNG", "Slovenian");
    player().changeLanguage();
    EXPECT_NE(mini(MiniElement::Image4, 1).tooltip, before);
    EXPECT_EQ(mini(MiniElement::Image4, 1).tooltip,
              player().elements().get(MainElement::playup).tooltip);
}

TEST_F(MiniMode, whatAScreenReaderMeetsIsWhatItsTwinTells) {
    play();
    enter();
    window::MiniActions& actions = player().presence().mini.actions;
    EXPECT_EQ(actions.factsOf(ui::addressOf(MiniElement::songname)).text,
              player().ground().screen.playing.scrollerText);
    EXPECT_EQ(actions.factsOf(ui::addressOf(MiniElement::volbar)).range->most, 100);
    actions.setValue(ui::addressOf(MiniElement::volbar), 30);
    EXPECT_EQ(player().state().CurrentVolume, 30);
    actions.adjust(ui::addressOf(MiniElement::volbar), ui::Adjustment::Up);
    EXPECT_EQ(player().state().CurrentVolume, 31);
    actions.activate(ui::addressOf(MiniElement::Image4, 2));
    EXPECT_TRUE(player().state().IsPaused);
    EXPECT_EQ(actions.factsOf(ui::addressOf(MiniElement::Picture3)).text, "");
    const auto places = window::miniAccess();
    EXPECT_EQ(places.size(), 21U);
    for (const ui::AccessPlace& place : places) {
        EXPECT_TRUE(window::mainTwinOf(place.element)) << place.element.name;
    }
}

} // namespace
} // namespace tovik::test
