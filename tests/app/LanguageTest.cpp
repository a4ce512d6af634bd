// SPDX-License-Identifier: GPL-3.0-or-later
// The words of a language in the windows.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::MainElement;

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
    EXPECT_EQ(player().menuTexts().caption("mnuplbitem1", 18), "Music search");
    EXPECT_NE(player().texts().publicText(), "");
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Language, theStartSpeaksTheLanguageOfTheSettings) {
    choose("Slovenian");
    start();
    EXPECT_EQ(element(MainElement::lbltag, 1).caption, "Naslov");
    EXPECT_EQ(element(MainElement::ripbt).tooltip, "Zajem glasbenega CD-ja");
    EXPECT_EQ(player().menuTexts().caption("mnuOptions"), "Mo\u017Enosti");
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
    EXPECT_TRUE(player().menuTexts().has("mnuExit"));
    EXPECT_EQ(player().menuTexts().caption("mnuExit"), "");
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
    EXPECT_EQ(player().menuTexts().caption("mnuExit"), "Izhod");
    EXPECT_EQ(element(MainElement::shwchange, 0).caption, "Jakost 80%");
}

TEST_F(Language, withoutTheSettingTheStartEndsBeforeIt) {
    takeOut("CLNG");
    start();
    EXPECT_EQ(element(MainElement::playup).tooltip, "");
    EXPECT_THAT(logged(), ElementsAre("Invalid use of Null,94,Player,Load"));
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
