// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/frmPreferences.h"

#include "preferences/PreferencesRig.h"
#include "support/host/Unprivileged.h"

namespace tovik::test {
namespace {

using player::Mode;
using preferences::Control;
using preferences::Page;
using preferences::Ticks;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class frmPreferences : public PreferencesRig {
protected:
    frmPreferences() { preferences_.Form_Load(); }

    void again() { preferences_.Form_Load(); }

    void set(Control control, std::int32_t number) { values().setNumber(control, number); }
};

TEST_F(frmPreferences, showsTheShippedSettings) {
    EXPECT_FALSE(values().ticked(Control::Check13));
    EXPECT_TRUE(values().ticked(Control::Check4));
    EXPECT_TRUE(values().ticked(Control::Check5));
    EXPECT_TRUE(values().ticked(Control::Check2));
    EXPECT_EQ(values().number(Control::Slider1_0), 5);
    EXPECT_EQ(values().number(Control::Slider1_1), 50);
    EXPECT_EQ(values().number(Control::Slider4), 40);
    EXPECT_EQ(values().text(Control::Combo3), "English");
    EXPECT_EQ(values().number(Control::Combo1), 1);
    EXPECT_EQ(values().rateText(), "128 kbps");
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(frmPreferences, okWithoutAChangeLeavesTheFileAsItWas) {
    state_.LoadFinished = false; // the window has no place yet
    store("CDSEARCH", "0");
    store("OSK", "0");
    const std::string before = host_.folder.read(kSettings);
    again();
    EXPECT_TRUE(preferences_.Command1_Click());
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(frmPreferences, aNumberBeyondItsSliderStaysUntilTheSliderIsMoved) {
    store("CFDT", "45");
    store("VPS", "250");
    again();
    EXPECT_EQ(values().number(Control::Slider1_0), 30);
    EXPECT_TRUE(preferences_.Command1_Click());
    EXPECT_EQ(stored("CFDT"), "45");
    EXPECT_EQ(stored("VPS"), "250");
    set(Control::Slider1_0, 29);
    EXPECT_TRUE(preferences_.Command1_Click());
    EXPECT_EQ(stored("CFDT"), "29");
    EXPECT_EQ(stored("VPS"), "250");
}

TEST_F(frmPreferences, thePlaceOfTheWindowIsWrittenInTwips) {
    preferences_.Command1_Click();
    EXPECT_EQ(stored("X"), "1500");
    EXPECT_EQ(stored("Y"), "3000");
    window_.x = -3;
    preferences_.Command7_Click();
    EXPECT_EQ(stored("X"), "-45");
    EXPECT_EQ(state_.WindowLeft, -45);
}

TEST_F(frmPreferences, aLanguageWithoutANameIsEnglish) {
    store("CLNG", "");
    again();
    preferences_.Command1_Click();
    EXPECT_EQ(stored("CLNG"), "English");
}

TEST_F(frmPreferences, fileTypesAreKeptByTheirPlaces) {
    preferences_.Command1_Click();
    EXPECT_EQ(stored("SFA"), "-1");
    Ticks ticks;
    ticks.set(0).set(9).set(14);
    values().setTypes(ticks);
    preferences_.Command1_Click();
    EXPECT_EQ(stored("SFA"), "0,9,14");
    again();
    EXPECT_EQ(values().types(), ticks);
    store("SFA", "3,99,-1");
    again();
    EXPECT_EQ(values().types(), Ticks().set(3));
}

TEST_F(frmPreferences, allOrNoFileTypesAreTicked) {
    using Button = preferences::frmPreferences::TypeButton;
    preferences_.Command2_Click(Button::all);
    EXPECT_TRUE(values().types().all());
    preferences_.Command2_Click(Button::none);
    EXPECT_TRUE(values().types().none());
}

TEST_F(frmPreferences, whatIsTickedIsAssociatedByWhoeverCan) {
    using Button = preferences::frmPreferences::TypeButton;
    EXPECT_FALSE(preferences_.canAssociate());
    preferences_.Command2_Click(Button::associate); // nobody: nothing happens
    std::vector<std::string> associated;
    preferences_.hooks.associate = [&](std::span<const std::string> extensions) {
        associated.assign(extensions.begin(), extensions.end());
    };
    EXPECT_TRUE(preferences_.canAssociate());
    values().setTypes(Ticks().set(1).set(9));
    preferences_.Command2_Click(Button::associate);
    EXPECT_THAT(associated, ElementsAre("xm", "mp3"));
    preferences_.hooks.associate = [](auto) {
        throw base::RuntimeError(base::ErrorNumber::FileNotFound);
    };
    preferences_.Command2_Click(Button::associate);
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
}

TEST_F(frmPreferences, oneOfTheTicksForTheVolumeIsAlwaysOn) {
    set(Control::Check15, 1);
    EXPECT_FALSE(values().ticked(Control::Check2));
    set(Control::Check15, 0);
    EXPECT_TRUE(values().ticked(Control::Check2));
    set(Control::Check2, 0);
    EXPECT_TRUE(values().ticked(Control::Check15));
}

TEST_F(frmPreferences, flagsBeyondOneAreOff) {
    for (const char* key : {"ASOT", "CFD", "CHKU", "MI"}) {
        store(key, "2");
    }
    store("SHI", "1"); // one digit is the first and the last
    again();
    EXPECT_FALSE(values().ticked(Control::Check3));
    EXPECT_FALSE(values().ticked(Control::Check7));
    EXPECT_FALSE(values().ticked(Control::Check13));
    EXPECT_FALSE(values().ticked(Control::Check1));
    EXPECT_TRUE(values().ticked(Control::Check4));
    EXPECT_TRUE(values().ticked(Control::Check5));
    preferences_.Command1_Click();
    EXPECT_EQ(stored("ASOT"), "0");
    EXPECT_EQ(stored("SHI"), "11");
}

TEST_F(frmPreferences, everyFormatHasItsOwnRate) {
    set(Control::Slider2, 192);
    set(Control::Combo1, 3);
    EXPECT_EQ(values().rateText(), "128 kbps");
    set(Control::Slider2, 96);
    set(Control::Combo1, 1);
    EXPECT_EQ(values().rateText(), "192 kbps");
    set(Control::Combo1, 0);
    EXPECT_EQ(values().rateText(), "1411 kbps");
    EXPECT_FALSE(values().choosesRate());
    set(Control::Slider2, 320); // belongs to no format
    preferences_.Command1_Click();
    EXPECT_EQ(stored("DOB"), "1411,192,128,96,128,128");
    EXPECT_EQ(stored("DBR"), "320");
    EXPECT_EQ(stored("DOF"), "Wave Audio (1411 kbps)");
}

TEST_F(frmPreferences, theFirstRateIsFixedAndAShortListIsCompleted) {
    store("DOB", "5,64");
    again();
    preferences_.Command1_Click();
    EXPECT_EQ(stored("DOB"), "1411,64,128,128,128,128");
}

TEST_F(frmPreferences, aFormatThatIsNotThereIsKept) {
    store("DOF", "WAX");
    again();
    EXPECT_EQ(values().number(Control::Combo1), -1);
    preferences_.Command1_Click();
    EXPECT_EQ(stored("DOF"), "WAX");
}

TEST_F(frmPreferences, modesChangeAtOnceAndShow) {
    for (const Control control :
         {Control::Check7, Control::Check8, Control::Check10, Control::Check11}) {
        set(control, 1);
    }
    modes_.modes.clear();
    preferences_.Command1_Click();
    EXPECT_TRUE(state_.CrossfadeOn);
    EXPECT_TRUE(state_.SilenceSkipOn);
    EXPECT_TRUE(state_.ShuffleOn);
    EXPECT_TRUE(state_.RepeatOn);
    EXPECT_THAT(modes_.modes,
                ElementsAre(Mode::crossfade, Mode::silenceSkip, Mode::shuffle, Mode::repeat));
    EXPECT_TRUE(silenceSkip_.watches());
    set(Control::Check8, 0);
    preferences_.Command7_Click();
    EXPECT_FALSE(state_.SilenceSkipOn);
    EXPECT_FALSE(silenceSkip_.watches());
}

TEST_F(frmPreferences, modesThatWereSwitchedSinceTheStartStay) {
    state_.CrossfadeOn = state_.SilenceSkipOn = state_.ShuffleOn = state_.RepeatOn = true;
    again();
    for (const Control control :
         {Control::Check7, Control::Check8, Control::Check10, Control::Check11}) {
        EXPECT_TRUE(values().ticked(control));
    }
    EXPECT_TRUE(preferences_.Command1_Click());
    EXPECT_TRUE(state_.CrossfadeOn && state_.SilenceSkipOn && state_.ShuffleOn && state_.RepeatOn);
    EXPECT_EQ(stored("SHF"), "1");
}

TEST_F(frmPreferences, theOthersActAtOnceWhereTheyCan) {
    std::vector<bool> tray;
    std::vector<std::int32_t> speeds;
    preferences_.hooks.tray = [&](bool shown) { tray.push_back(shown); };
    preferences_.hooks.spectrumSpeed = [&](std::int32_t ms) { speeds.push_back(ms); };
    set(Control::Check3, 1);
    set(Control::Check17, 1);
    set(Control::Check5, 0);
    set(Control::Slider4, 66);
    preferences_.Command1_Click();
    EXPECT_THAT(window_.topmost, ElementsAre(true));
    EXPECT_EQ(state_.AlwaysOnTop, 1);
    EXPECT_TRUE(state_.MessengerOn);
    EXPECT_FALSE(tray.empty());
    EXPECT_FALSE(tray.back());
    EXPECT_THAT(speeds, ElementsAre(66));
    set(Control::Check3, 0);
    preferences_.Command1_Click();
    EXPECT_THAT(window_.topmost, ElementsAre(true, false));
}

TEST_F(frmPreferences, aNewThresholdCountsForTheTrackThatPlays) {
    set(Control::Check8, 1);
    set(Control::Slider1_1, 90); // only silence at the very end counts
    preferences_.Command1_Click();
    addRows(2, {.seconds = 65});
    list_.SelectedIndex = 1;
    list_.GetData(1);
    burn(list_.OutFileName);
    clock_.watchTrack(false); // only silence ends a track here
    sound_.channel(state_.active()).level = 0;
    advance(2000);
    EXPECT_EQ(list_.SelectedIndex, 1);
    set(Control::Slider1_1, 0);
    preferences_.Command1_Click();
    EXPECT_EQ(stored("SLDT"), "0");
    advance(2000);
    EXPECT_EQ(list_.SelectedIndex, 2);
}

TEST_F(frmPreferences, cancelWritesNothing) {
    const std::string before = host_.folder.read(kSettings);
    set(Control::Check7, 1);
    again(); // the next opening
    EXPECT_FALSE(values().ticked(Control::Check7));
    EXPECT_EQ(host_.folder.read(kSettings), before);
    EXPECT_FALSE(state_.CrossfadeOn);
}

TEST_F(frmPreferences, aLanguageIsStoredWhenItIsChosenAndCancelKeepsIt) {
    int changed = 0;
    preferences_.hooks.changeLanguage = [&] {
        EXPECT_EQ(stored("CLNG"), "Slovenian");
        ++changed;
    };
    EXPECT_THAT(preferences_.Combo3(), ElementsAre("English", "Slovenian"));
    preferences_.Combo3_Click("Slovenian");
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(state_.LanguageFile, "Slovenian");
    again();
    EXPECT_EQ(values().text(Control::Combo3), "Slovenian");
}

TEST_F(frmPreferences, languagesAreTheFilesWithTheirExtension) {
    std::filesystem::remove(host_.folder / "Languages");
    EXPECT_THAT(preferences_.Combo3(), IsEmpty());
    for (const char* name : {"Zulu.LNG", "Bavarian.lng", "notes.txt", "old.lng.bak"}) {
        host_.folder.write(std::string("Languages/") + name, "");
    }
    EXPECT_THAT(preferences_.Combo3(), ElementsAre("Bavarian", "Zulu"));
}

TEST_F(frmPreferences, theTimeForNextGoesWithTheOtherUntilItIsSet) {
    EXPECT_EQ(values().number(Control::Slider1_2), 2);
    set(Control::Slider1_0, 2);
    EXPECT_EQ(values().number(Control::Slider1_2), 1);
    preferences_.Command1_Click();
    EXPECT_EQ(host_.folder.read(kSettings).find("CFDN"), std::string::npos) << "nobody chose it";
    set(Control::Slider1_2, 4);
    set(Control::Slider1_0, 9);
    EXPECT_EQ(values().number(Control::Slider1_2), 4);
    preferences_.Command1_Click();
    EXPECT_EQ(stored("CFDN"), "4");
    set(Control::Slider1_2, 3);
    preferences_.Command1_Click();
    EXPECT_EQ(stored("CFDN"), "3");
}

TEST_F(frmPreferences, aFractionOfTheTimeForNextStaysWhereNobodyMovesIt) {
    set(Control::Slider1_2, 1);
    preferences_.Command1_Click();
    store("CFDN", "0.7");
    again();
    EXPECT_EQ(values().number(Control::Slider1_2), 1);
    preferences_.Command1_Click();
    EXPECT_EQ(stored("CFDN"), "0.7");
}

TEST_F(frmPreferences, theTimeForNextIsAChoiceWithItsSwitchAlone) {
    EXPECT_FALSE(preferences_.choosesShorterFade());
    set(preferences::comfortControl(4), 1);
    EXPECT_TRUE(preferences_.choosesShorterFade()) << "before it is stored, too";
    set(preferences::comfortControl(4), 0);
    state_.ComfortOfRun = true;
    state_.comfort.shortensManualNext = true;
    EXPECT_TRUE(preferences_.choosesShorterFade());
}

TEST_F(frmPreferences, aMissingKeyIsToldAndWhatComesBehindItStaysAsItIs) {
    store("CFDT", "7");
    store("SLDT", "33");
    drop("CFD");
    again();
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_THAT(host_.dialogs.boxes[0].text, HasSubstr("CFD"));
    set(Control::Slider1_0, 9); // by hand
    EXPECT_TRUE(preferences_.Command1_Click());
    EXPECT_EQ(stored("CFDT"), "9");
    EXPECT_EQ(stored("SLDT"), "33");
}

TEST_F(frmPreferences, aTextThatIsNoNumberIsTold) {
    store("STI", "many");
    again();
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_THAT(host_.dialogs.boxes[0].text, HasSubstr("STI = \"many\""));
}

TEST_F(frmPreferences, whatCannotBeWrittenIsToldAndDoesNotAct) {
    set(Control::Check7, 1);
    namespace fs = std::filesystem;
    fs::permissions(host_.folder / "db", fs::perms(0555));
    fs::permissions(host_.folder.path(), fs::perms(0755));
    {
        const Unprivileged user;
        EXPECT_FALSE(preferences_.Command1_Click());
        preferences_.Command7_Click();
    }
    fs::permissions(host_.folder / "db", fs::perms(0755));
    EXPECT_FALSE(state_.CrossfadeOn);
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(2));
}

TEST_F(frmPreferences, aFolderIsAskedForAndKept) {
    store("ROP", "/music/old");
    again();
    opener_.answer = [&] {
        EXPECT_EQ(preferences_.ripDir.folder(), "/music/old");
        preferences_.ripDir.Command1_Click(preferences::frmRipDir::Button::ok, "/music/new");
    };
    preferences_.chooseFolder(Control::Label3);
    EXPECT_THAT(opener_.opened, ElementsAre(window::WindowId::ripFolder));
    EXPECT_EQ(values().text(Control::Label3), "/music/new");
    EXPECT_EQ(stored("ROP"), "/music/old");
    preferences_.Command1_Click();
    EXPECT_EQ(stored("ROP"), "/music/new");

    opener_.answer = [&] {
        preferences_.ripDir.Command1_Click(preferences::frmRipDir::Button::cancel, "/elsewhere");
    };
    preferences_.chooseFolder(Control::Label3);
    EXPECT_EQ(values().text(Control::Label3), "/music/new");
}

TEST_F(frmPreferences, onlyAPathFromTheRootIsAFolder) {
    preferences::frmRipDir folder;
    folder.begin("/a");
    using Button = preferences::frmRipDir::Button;
    EXPECT_FALSE(folder.Command1_Click(Button::ok, ""));
    EXPECT_FALSE(folder.Command1_Click(Button::ok, "music"));
    EXPECT_FALSE(folder.chosen());
    EXPECT_TRUE(folder.Command1_Click(Button::ok, "/music"));
    EXPECT_EQ(folder.chosen(), "/music");
    folder.begin("/b");
    EXPECT_FALSE(folder.chosen());
    EXPECT_TRUE(folder.Command1_Click(Button::cancel, "/music"));
    EXPECT_FALSE(folder.chosen());
}

TEST_F(frmPreferences, opensOnThePageThatWasAskedFor) {
    opener_.answer = [this] { preferences_.Form_Load(); };
    preferences_.openOn(Page::ripper);
    EXPECT_EQ(preferences_.page(), Page::ripper);
    preferences_.swich_tab(Page::shortcuts);
    EXPECT_EQ(preferences_.page(), Page::shortcuts);
    preferences_.openOn(Page::general);
    EXPECT_EQ(preferences_.page(), Page::general);
    EXPECT_THAT(opener_.opened, SizeIs(2));
}

TEST_F(frmPreferences, theHistoryIsThatOfTheDataFolderOrTheShippedOne) {
    EXPECT_EQ(preferences_.VersionHist(), "");
    host_.folder.write("shipped/vh.txt", "0.1 first");
    preferences::frmPreferences second({.core = core_,
                                        .silenceSkip = silenceSkip_,
                                        .window = window_,
                                        .windows = opener_,
                                        .language = language_,
                                        .paths = host_.paths,
                                        .shippedFolder = host_.folder / "shipped"});
    EXPECT_EQ(second.VersionHist(), "0.1 first");
    host_.folder.write("vh.txt", "0.2 second");
    EXPECT_EQ(second.VersionHist(), "0.2 second");
}

} // namespace
} // namespace tovik::test
