// SPDX-License-Identifier: GPL-3.0-or-later
// The words of a language in the windows.
#include "app/AppRig.h"
#include "support/host/SettingPlace.h"

#include <array>

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using window::MainElement;

class Language : public AppRig {
protected:
    void choose(const std::string& name) const { set("CLNG", name); }

    /// Puts a language file in the place of the shipped ones.
    void write(const std::string& name, const std::string& bytes) const {
        std::filesystem::remove(host_.folder / "Languages");
        host_.folder.write("Languages/" + name + ".lng", bytes);
    }

    [[nodiscard]] const ui::Element& element(MainElement name, std::size_t index = 0) {
        return player().elements().get(name, index);
    }
};

TEST_F(Language, theStartSpeaksEnglish) {
    start();
    EXPECT_EQ(element(MainElement::lbltag, 0).caption, "Artist");
    EXPECT_EQ(element(MainElement::lblPos, 4).caption, "Quick playlist");
    EXPECT_EQ(element(MainElement::playup).tooltip, "Play");
    EXPECT_EQ(element(MainElement::irtbt).tooltip, "Internet Radio Tuner");
    EXPECT_EQ(element(MainElement::Label3).caption, "Volume [x]%");
    EXPECT_EQ(element(MainElement::Label4, 8).caption, "[x]%");
    EXPECT_EQ(element(MainElement::Label2).caption, "Tovik");
    EXPECT_EQ(element(MainElement::eqHeading).caption, "Equalizer");
    EXPECT_EQ(element(MainElement::eq_sld, 10).name, "Master");
    EXPECT_EQ(player().ground().menuTexts.caption("mnuplbitem1", 18), "Music search");
    EXPECT_NE(player().view().texts.publicText(), "");
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Language, whatHasWordsAndShowsNoneTellsThemUnderThePointer) {
    struct Place {
        const char* panel;
        MainElement element;
        const char* words;
    };

    static constexpr auto kPlaces = std::to_array<Place>({
        {"10000", MainElement::Picture1, "Visualisation (right button: choose)"},
        {"10000", MainElement::backupIMG, "Previous"},
        {"10000", MainElement::playup, "Play"},
        {"10000", MainElement::pauseup, "Pause"},
        {"10000", MainElement::stopup, "Stop"},
        {"10000", MainElement::nextup, "Next"},
        {"10000", MainElement::fileup, "Open file"},
        {"10000", MainElement::minon, "Minimise"},
        {"10000", MainElement::closeup, "Close"},
        {"10000", MainElement::Label2, "About Tovik (double click)"},
        {"10000", MainElement::ShuffleBT, "Shuffle"},
        {"10000", MainElement::LoopBT, "Repeat"},
        {"10000", MainElement::CfdBT, "Crossfade"},
        {"10000", MainElement::sldBT, "Silence Detection"},
        {"10000", MainElement::timed, "Double click: elapsed or remaining time"},
        {"10000", MainElement::posbar, "Position"},
        {"10000", MainElement::track, "Position"},
        {"10000", MainElement::volbar, "Volume"},
        {"10000", MainElement::volbarIMG, "Volume"},
        {"10000", MainElement::balbar, "Balance"},
        {"10000", MainElement::qpl_but, "Quick playlist"},
        {"10000", MainElement::mainbt, "Main"},
        {"10000", MainElement::eqbt, "EQ"},
        {"10000", MainElement::plbt, "Playlist"},
        {"10000", MainElement::ripbt, "Audio CD Ripper"},
        {"10000", MainElement::irtbt, "Internet Radio Tuner"},
        {"10000", MainElement::prebt, "Preferences"},
        {"01000", MainElement::EQ_on, "Switch the equalizer off"},
        {"01000", MainElement::EQ_off, "EQ"},
        {"01000", MainElement::presetbt, "Presets"},
        {"01000", MainElement::resetbt, "Reset all bands"},
        {"00100", MainElement::addfileIMG, "Add file"},
        {"00100", MainElement::adddirIMG, "Add folder"},
        {"00100", MainElement::addlocIMG, "Add location"},
        {"00100", MainElement::delIMG, "Delete"},
        {"00100", MainElement::clrIMG, "Clear list"},
        {"00100", MainElement::loadImg, "Load playlist"},
        {"00100", MainElement::SaveImg, "Save playlist"},
        {"00100", MainElement::srchIMG, "Search"},
        {"00100", MainElement::musicSearchTxt, "Search"},
        {"00010", MainElement::cmbCDDrives, "CD drive"},
        {"00010", MainElement::ripperbt, "Rip"},
        {"00001", MainElement::Image1, "Play station"},
    });
    start();
    window::MainElements& elements = player().elements();
    for (const Place& place : kPlaces) {
        player().view().panels.Switch_Win(place.panel);
        for (std::size_t i = 0; i < elements.count(place.element); ++i) {
            const ui::Element& element = elements.get(place.element, i);
            const ui::Box box = element.box();
            if (!element.visible || box.width <= 0 || box.height <= 0) {
                continue;
            }
            const auto slot =
                elements.topmostAt(box.left + box.width / 2, box.top + box.height / 2);
            ASSERT_TRUE(slot);
            const bool several = place.element == MainElement::Image1;
            EXPECT_EQ(several ? element.tooltip.empty() : element.tooltip != place.words, false)
                << place.words << i;
            // Hidden by nothing that says something else.
            EXPECT_EQ(elements.at(*slot).tooltip, element.tooltip) << place.words << i;
        }
        EXPECT_NE(elements.get(place.element).tooltip, "") << place.words;
    }
}

TEST_F(Language, theVolumeHasOneName) {
    start();
    for (const char* name : {"English", "Slovenian"}) {
        choose(name);
        player().changeLanguage();
        const std::string heading = element(MainElement::lblPos, 1).caption;
        EXPECT_EQ(element(MainElement::shwchange, 0).caption, heading + " 80%");
        EXPECT_EQ(element(MainElement::volbar).tooltip, heading);
    }
}

TEST_F(Language, theStartSpeaksTheLanguageOfTheSettings) {
    choose("Slovenian");
    start();
    EXPECT_EQ(element(MainElement::lbltag, 1).caption, "Naslov");
    EXPECT_EQ(element(MainElement::ripbt).tooltip, "Zajem glasbenega CD-ja");
    EXPECT_EQ(player().ground().menuTexts.caption("mnuOptions"), "Mo\u017Enosti");
    EXPECT_EQ(element(MainElement::shwchange, 0).caption, "Jakost 80%");
    EXPECT_EQ(element(MainElement::shwchange, 1).caption, "Sredina");
}

TEST_F(Language, theLanguageOfTheInstallationIsSpokenAtOnce) {
    host_.folder.write("firstrun.ini", "[Firstrun]\r\nLNG=Slovenian\r\n");
    start();
    EXPECT_EQ(element(MainElement::lbltag, 1).caption, "Naslov");
}

TEST_F(Language, aMissingLanguageBlanksAndSaysNothing) {
    choose("Missing");
    start();
    EXPECT_EQ(element(MainElement::lbltag, 0).caption, "");
    EXPECT_EQ(element(MainElement::lblPos, 0).caption, "");
    EXPECT_EQ(element(MainElement::playup).tooltip, "");
    EXPECT_TRUE(player().ground().menuTexts.has("mnuExit"));
    EXPECT_EQ(player().ground().menuTexts.caption("mnuExit"), "");
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_TRUE(player().state().LoadFinished);
}

TEST_F(Language, aPartialFileBlanksTheRest) {
    write("English", "[PlayerWin]\r\nitem0= Performer \r\n");
    start();
    EXPECT_EQ(element(MainElement::lbltag, 0).caption, "Performer");
    EXPECT_EQ(element(MainElement::lbltag, 1).caption, "");
}

TEST_F(Language, aChangeShowsWithoutARestart) {
    start();
    choose("Slovenian");
    player().changeLanguage();
    EXPECT_EQ(element(MainElement::lbltag, 1).caption, "Naslov");
    EXPECT_EQ(element(MainElement::mainbt).tooltip, "Glavno okno");
    EXPECT_EQ(player().ground().menuTexts.caption("mnuExit"), "Izhod");
    EXPECT_EQ(element(MainElement::shwchange, 0).caption, "Jakost 80%");
}

TEST_F(Language, withoutTheSettingTheStartEndsBeforeIt) {
    takeOut("CLNG");
    start();
    EXPECT_EQ(element(MainElement::playup).tooltip, "");
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null" + settingPlace(host_.folder, "CLNG") +
                                      ",94,Player,Load"));
}

TEST_F(Language, aSystemThatIsTooOldIsRefusedInTheLanguage) {
    host_.operatingSystem.major = 4;
    choose("Slovenian");
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Tovik potrebuje novej\u0161i operacijski sistem.");
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Tovik");
    EXPECT_TRUE(host_.endStatus);
}

TEST_F(Language, theRefusalSpeaksTheLanguageOfTheInstallation) {
    host_.operatingSystem.major = 4;
    host_.folder.write("firstrun.ini", "[Firstrun]\r\nLNG=Slovenian\r\n");
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_THAT(host_.dialogs.boxes[0].text, testing::HasSubstr("potrebuje"));
}

TEST_F(Language, withoutAFileTheRefusalIsBlank) {
    host_.operatingSystem.major = 4;
    choose("Missing");
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "");
    EXPECT_TRUE(host_.endStatus);
}

} // namespace
} // namespace tovik::test
