// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/MultiLNG.h"
#include "config/MenuTexts.h"
#include "config/RecordingTargets.h"

#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>

namespace tovik::config {
namespace {

using test::RecordingTargets;
using testing::IsEmpty;
using W = TextWindow;
using K = TextKind;

/// What 54 items say of elements, and 17 names for screen readers.
constexpr std::size_t kMainWindowTexts = 63 + 17;

/// Each item's text is its own number.
std::string numbered(std::string_view section, int items) {
    std::string bytes = "[" + std::string(section) + "]\r\n";
    for (int i = 0; i < items; ++i) {
        bytes += "item" + std::to_string(i) + "=text " + std::to_string(i) + "\r\n";
    }
    return bytes;
}

class MultiLNGTest : public testing::Test {
protected:
    MultiLNGTest() {
        for (std::size_t i = 0; i < kTextWindows; ++i) {
            language_.attach(static_cast<W>(i), windows_.at(i));
        }
        language_.Language_File("Test");
    }

    void write(const std::string& bytes) const { folder_.write("Languages/Test.lng", bytes); }

    RecordingTargets& window(W window) { return windows_.at(static_cast<std::size_t>(window)); }

    test::TemporaryFolder folder_;
    host::Paths paths_{folder_.path()};
    MultiLNG language_{paths_};
    std::array<RecordingTargets, kTextWindows> windows_;
};

TEST_F(MultiLNGTest, theShippedFolderServesWhereTheUsersCannotBeRead) {
    const test::TemporaryFolder shipped;
    shipped.write("Languages/Test.lng", "[Prompt]\r\nitem0=shipped\r\n");
    MultiLNG language(paths_, shipped.path());
    language.Language_File("Test");
    EXPECT_EQ(language.get_Prompt_String(0), "shipped");
    write("[Prompt]\r\nitem0=own\r\n");
    EXPECT_EQ(language.get_Prompt_String(0), "own");
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder_ / "Languages", std::filesystem::perms(0));
    std::filesystem::permissions(shipped.path(), std::filesystem::perms(0755));
    {
        const test::Unprivileged user;
        EXPECT_EQ(language.get_Prompt_String(0), "shipped");
    }
    std::filesystem::permissions(folder_ / "Languages", std::filesystem::perms(0755));
}

TEST_F(MultiLNGTest, aNoticeIsAskedForByNumber) {
    write("[TovikNotice]\r\nitem0=not kept\r\n");
    EXPECT_EQ(language_.get_Notice_String(0), "not kept");
    write("");
    EXPECT_EQ(language_.get_Notice_String(0), "Changes are not kept") << "never blank";
}

TEST_F(MultiLNGTest, theMainMenuNamesEntriesAndTabs) {
    write(numbered("MainMenu", 37));
    language_.Load_Menu_Main_LNG();
    const RecordingTargets& menu = window(W::frmTSR);
    constexpr std::array kEntries = {
        "mnuAbout", "mnuPlay",        "mnuFile",      "mnuFolder", "mnuLocation", "mnuMainWin",
        "mnuEQWin", "mnuPlaylistWin", "mnuRipWin",    "mnuIRTWin", "mnuPreWin",   "mnuOptions",
        "mnuTop",   "mnuElapsed",     "mnuRemaining", "mnuLoop",   "mnuShuffle",  "mnucrossfade",
        "mnuSld",   "mnuExit",        "mnuPlayback"};
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        EXPECT_EQ(menu.at(kEntries.at(i)), "text " + std::to_string(i));
    }
    constexpr std::array kGroup = {1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14, 16, 17, 18};
    for (std::size_t i = 0; i < kGroup.size(); ++i) {
        EXPECT_EQ(menu.at("mnuplbitem1", kGroup.at(i)), "text " + std::to_string(21 + i));
    }
    EXPECT_EQ(menu.texts.size(), kEntries.size() + kGroup.size());
    constexpr std::array kTabs = {"mainbt", "eqbt", "plbt", "ripbt", "irtbt", "prebt"};
    for (std::size_t i = 0; i < kTabs.size(); ++i) {
        EXPECT_EQ(window(W::frmPlayer).at(kTabs.at(i), 0, K::Tooltip),
                  "text " + std::to_string(5 + i));
    }
    EXPECT_EQ(window(W::frmPlayer).at("EQ_off", 0, K::Tooltip), "text 6");
    EXPECT_EQ(window(W::frmPlayer).at("stopNote"), "text 27");
    EXPECT_EQ(window(W::frmPlayer).at("stdSS", 0, K::Name), "text 7");
    EXPECT_EQ(window(W::frmPlayer).texts.size(), kTabs.size() + 3);
}

TEST_F(MultiLNGTest, theOtherMenus) {
    write("[VisMenu]\nitem0=v0\nitem1=v1\n[PlMenu]\nitem0=p0\nitem1=p1\nitem2=p2\n"
          "[PresetMenu]\nitem0=e0\nitem1=e1\nitem2=e2\n[RipMenu]\nitem0=r0\nitem1=r1\nitem2=r2\n");
    language_.Load_Menus_Lng();
    const RecordingTargets& menu = window(W::frmTSR);
    EXPECT_EQ(menu.at("sp", 0), "v0");
    EXPECT_EQ(menu.at("sp", 2), "v1");
    EXPECT_EQ(menu.at("mnuplsPlay"), "p0");
    EXPECT_EQ(menu.at("mnuplsDel"), "p1");
    EXPECT_EQ(menu.at("mnuplsinfo"), "p2");
    EXPECT_EQ(menu.at("mnuldpreset"), "e0");
    EXPECT_EQ(menu.at("mnuldpreset2"), "e1");
    EXPECT_EQ(menu.at("mnusvpreset"), "e2");
    EXPECT_EQ(menu.at("mnuRipSet"), "r0");
    EXPECT_EQ(menu.at("mnuRipAll"), "r1");
    EXPECT_EQ(menu.at("mnuRipSel"), "r2");
}

TEST_F(MultiLNGTest, theMenusComeInTheirOrder) {
    language_.Load_Menus_Lng();
    const auto placeOf = [this](const char* entry, int index) {
        return std::ranges::find(window(W::frmTSR).order,
                                 RecordingTargets::Place{entry, index, K::Caption});
    };
    EXPECT_LT(placeOf("mnuplbitem1", 18), placeOf("sp", 0));
    EXPECT_LT(placeOf("sp", 2), placeOf("mnuldpreset", 0));
    EXPECT_LT(placeOf("mnusvpreset", 0), placeOf("mnuRipSet", 0));
    EXPECT_LT(placeOf("mnuRipSel", 0), placeOf("mnuplsPlay", 0));
    EXPECT_LT(placeOf("mnuplsinfo", 0), window(W::frmTSR).order.end());
}

TEST_F(MultiLNGTest, theMainWindow) {
    write(numbered("PlayerWin", 54));
    language_.Load_Main_Win_LNG();
    const RecordingTargets& player = window(W::frmPlayer);
    EXPECT_EQ(player.at("lbltag", 4), "text 4");
    EXPECT_EQ(player.at("lblPos", 3), "text 5");
    EXPECT_EQ(player.at("lblPos", 0), "text 6");
    EXPECT_EQ(player.at("lblPos", 4), "text 7");
    EXPECT_EQ(player.at("lblPos", 1), "text 8");
    EXPECT_EQ(player.at("lblPos", 2), "text 9");
    EXPECT_EQ(player.at("playup", 0, K::Tooltip), "text 12");
    EXPECT_EQ(player.at("SaveImg", 0, K::Tooltip), "text 33");
    EXPECT_EQ(player.at("Image1", 4, K::Tooltip), "text 39");
    EXPECT_EQ(player.at("timed", kEveryElement, K::Tooltip), "text 40");
    EXPECT_EQ(player.at("Label3"), "text 41");
    EXPECT_EQ(player.at("Label4", 0), "text 42");
    EXPECT_EQ(player.at("Label4", 8), "text 50");
    EXPECT_EQ(player.at("slDRV"), "text 51");
    EXPECT_EQ(player.at("lblinfo", 4, K::Name), "text 4");
    EXPECT_EQ(player.at("posbar", 0, K::Name), "text 6");
    EXPECT_EQ(player.at("shwchange", 1, K::Name), "text 9");
    EXPECT_EQ(player.at("musicSearchTxt", 0, K::Text), "text 52");
    EXPECT_EQ(player.at("posbar", 0, K::Tooltip), "text 6");
    EXPECT_EQ(player.at("volbarIMG", 0, K::Tooltip), "text 8");
    EXPECT_EQ(player.at("balbar", kEveryElement, K::Tooltip), "text 9");
    EXPECT_EQ(player.at("PublicText", 0, K::Kept), "text 53");
    EXPECT_EQ(player.texts.size(), kMainWindowTexts);
}

TEST_F(MultiLNGTest, thePreferencesAskForOneItemMoreThanTheyShow) {
    write(numbered("frmPreferences", 61));
    language_.Load_FRM_Preferences_LNG();
    const RecordingTargets& preferences = window(W::frmPreferences);
    EXPECT_EQ(preferences.at(""), "text 0");
    EXPECT_EQ(preferences.at("TabStrip1", 6, K::Tab), "text 7");
    EXPECT_EQ(preferences.at("Command7"), "text 9");
    EXPECT_EQ(preferences.at("Command2", 2), "text 27");
    EXPECT_EQ(preferences.at("Combo2", 4, K::ListEntry), "text 44");
    EXPECT_EQ(preferences.at("List4", 0, K::ListEntry), "text 53");
    EXPECT_EQ(preferences.at("List4", 1, K::ListEntry), "text 58");
    EXPECT_EQ(preferences.at("Check17"), "text 59");
    const auto isName = [](const auto& text) { return std::get<K>(text.first) == K::Name; };
    EXPECT_EQ(std::ranges::count_if(preferences.texts, std::not_fn(isName)), 61)
        << "one stands behind two sliders";
    EXPECT_EQ(languageSections()[static_cast<std::size_t>(LanguageSection::frmPreferences)].items,
              61);
}

TEST_F(MultiLNGTest, everyDialogHasItsLoader) {
    struct Loader {
        void (MultiLNG::*load)();
        const char* section;
        int items;
        W window;
    };

    constexpr std::array kLoaders = {
        Loader{&MultiLNG::Load_FRM_Preset_LNG, "FrmLoadPreset", 4, W::frmLoadPreset},
        Loader{&MultiLNG::Load_FRM_addDir_LNG, "frmAddDir", 4, W::frmOpenDirectory},
        Loader{&MultiLNG::Load_FRM_search_LNG, "frmSearchSong", 6, W::frmJump2File},
        Loader{&MultiLNG::Load_addST_search_LNG, "frmAddStation", 4, W::frmaddst},
        Loader{&MultiLNG::Load_FRM_cdinfo_LNG, "frmCdInfo", 10, W::frmCdNFO},
        Loader{&MultiLNG::Load_Update_LNG, "Update", 5, W::Update},
        Loader{&MultiLNG::Load_Outputpath, "frmOutPutPath", 3, W::frmRipDir},
        Loader{&MultiLNG::Load_About, "frmAbout", 5, W::frmAbout},
        Loader{&MultiLNG::Load_FRM_MP3Tag, "frmMp3Tag", 35, W::frmMp3Tag},
        Loader{&MultiLNG::Load_frmJump2time, "frmJump2Time", 6, W::frmjump2time},
        Loader{&MultiLNG::Load_frmJump2track, "frmJump2Track", 9, W::frmJump2Track},
    };
    for (const Loader& loader : kLoaders) {
        write(numbered(loader.section, loader.items));
        (language_.*loader.load)();
        EXPECT_EQ(window(loader.window).at(""), "text 0") << loader.section;
        EXPECT_EQ(window(loader.window).texts.size(), static_cast<std::size_t>(loader.items))
            << loader.section;
        for (const auto& [place, text] : window(loader.window).texts) {
            EXPECT_TRUE(text.starts_with("text ")) << loader.section << std::get<0>(place);
        }
    }
}

TEST_F(MultiLNGTest, buttonsOfDialogsInTheirOrder) {
    write(numbered("frmCdInfo", 10) + numbered("frmAbout", 5) + numbered("frmMp3Tag", 35) +
          numbered("frmSearchSong", 6));
    language_.loadAttached();
    EXPECT_EQ(window(W::frmCdNFO).at("Frame2", 0), "text 2");
    EXPECT_EQ(window(W::frmCdNFO).at("Frame2", 1), "text 4");
    EXPECT_EQ(window(W::frmCdNFO).at("Command1", 2), "text 8");
    EXPECT_EQ(window(W::frmCdNFO).at("Command1", 4), "text 9");
    EXPECT_EQ(window(W::frmAbout).at("Command1", 1), "text 2");
    EXPECT_EQ(window(W::frmAbout).at("Command1", 0), "text 3");
    EXPECT_EQ(window(W::frmMp3Tag).at("Command1", 2), "text 33");
    EXPECT_EQ(window(W::frmMp3Tag).at("Command1", 1), "text 34");
    EXPECT_EQ(window(W::frmJump2File).at("PublicText", 0, K::Kept), "text 2");
}

TEST_F(MultiLNGTest, theCommandsGoToTheListOfThePreferences) {
    write(numbered("Shortcuts", 36));
    language_.Get_Shortcut_List();
    const RecordingTargets& preferences = window(W::frmPreferences);
    EXPECT_EQ(preferences.texts.size(), 36U);
    EXPECT_EQ(preferences.at("Shortcuts", 0, K::ListEntry), "text 0");
    EXPECT_EQ(preferences.at("Shortcuts", 35, K::ListEntry), "text 35");
}

TEST_F(MultiLNGTest, whatAPartialFileLeavesOutGoesBlank) {
    write("[PlayerWin]\r\nitem0=Artist\r\n");
    language_.Load_Main_Win_LNG();
    EXPECT_EQ(window(W::frmPlayer).at("lbltag", 0), "Artist");
    EXPECT_EQ(window(W::frmPlayer).at("lbltag", 1), "");
    EXPECT_EQ(window(W::frmPlayer).texts.size(), kMainWindowTexts) << "blank texts are set, too";
    language_.Load_Menu_Main_LNG();
    EXPECT_EQ(window(W::frmTSR).at("mnuExit"), "");
}

TEST_F(MultiLNGTest, aMissingFileBlanksTheWindow) {
    language_.Language_File("None");
    language_.Load_Main_Win_LNG();
    EXPECT_EQ(window(W::frmPlayer).texts.size(), kMainWindowTexts);
    for (const auto& [place, text] : window(W::frmPlayer).texts) {
        EXPECT_EQ(text, "") << std::get<0>(place);
    }
    EXPECT_EQ(language_.get_Error_String(1), "");
}

TEST_F(MultiLNGTest, ownSectionsAreReadAndNeverBlank) {
    write("[TovikNames]\r\nitem1=Izena\u010Devalnik\r\nitem3=  \r\n");
    language_.loadNames();
    const RecordingTargets& player = window(W::frmPlayer);
    EXPECT_EQ(player.at("EQ_on", 0, K::Name), "Izena\u010Devalnik");
    EXPECT_EQ(player.at("minmodeUP", 0, K::Name), "Mini mode") << "blank in the file";
    EXPECT_EQ(player.at("songname", 0, K::Name), "Track") << "not in the file";
    EXPECT_EQ(player.at("eq_sld", 10, K::Name), "Master");
    EXPECT_EQ(player.at("RadioLst", 0, K::Caption), "Press a button to add a station");
    EXPECT_EQ(player.at("stdSS", 0, K::Caption), player.at("List1", 0, K::Caption));
    language_.Language_File("None");
    language_.loadAttached();
    EXPECT_EQ(player.at("EQ_on", 0, K::Name), "Equalizer");
}

TEST_F(MultiLNGTest, promptsAndErrorsByTheirNumber) {
    write("[prompt]\nITEM2=  [x] exists  \n[ERROR]\nitem0=Title\nitem1=\" Text \"\n");
    EXPECT_EQ(language_.get_Prompt_String(2), "[x] exists");
    EXPECT_EQ(language_.get_Prompt_String(3), "");
    EXPECT_EQ(language_.get_Error_String(0), "Title");
    EXPECT_EQ(language_.get_Error_String(1), "Text") << "trimmed within the quotes, too";
}

TEST_F(MultiLNGTest, keysAreMatchedAsWrittenAndASemicolonIsText) {
    write("[PlayerWin]\nitem053=wrong\n;item53=wrong\nitem52=;here\n");
    language_.Load_Main_Win_LNG();
    EXPECT_EQ(window(W::frmPlayer).at("PublicText", 0, K::Kept), "");
    EXPECT_EQ(window(W::frmPlayer).at("musicSearchTxt", 0, K::Text), ";here");
}

TEST_F(MultiLNGTest, aNameMayLeaveTheFolder) {
    folder_.write("other/Mine.lng", "[Error]\nitem0=mine\n");
    language_.Language_File("..\\other\\Mine");
    EXPECT_EQ(language_.get_Error_String(0), "") << "the folder must be there to leave it";
    folder_.write("Languages/Test.lng", "");
    EXPECT_EQ(language_.get_Error_String(0), "mine");
    language_.Language_File("../other/Mine");
    EXPECT_EQ(language_.get_Error_String(0), "mine");
}

TEST_F(MultiLNGTest, theCaseOfTheNamePlaysNoPart) {
    write("[Error]\nitem0=mine\n");
    language_.Language_File("TEST");
    EXPECT_EQ(language_.get_Error_String(0), "mine");
}

TEST_F(MultiLNGTest, aWindowThatIsGoneGetsNothing) {
    write(numbered("frmAbout", 5));
    RecordingTargets about;
    {
        const AttachedTexts attached(language_, W::frmAbout, about);
        language_.Load_About();
        EXPECT_EQ(about.texts.size(), 5U);
    }
    about.texts.clear();
    language_.Load_About();
    EXPECT_THAT(about.texts, IsEmpty());
}

TEST_F(MultiLNGTest, aChangeOfLanguageReachesEveryOpenWindow) {
    write(numbered("frmAbout", 5) + numbered("PlayerWin", 54));
    folder_.write("Languages/Other.lng", "[PlayerWin]\nitem0=other\n[frmAbout]\nitem0=other\n");
    language_.loadAttached();
    EXPECT_EQ(window(W::frmPlayer).at("lbltag", 0), "text 0");
    language_.Language_File("Other");
    language_.loadAttached();
    EXPECT_EQ(window(W::frmPlayer).at("lbltag", 0), "other");
    EXPECT_EQ(window(W::frmPlayer).at("lbltag", 1), "");
    EXPECT_EQ(window(W::frmAbout).at(""), "other");
}

TEST(MenuTexts, keepsTheLastCaptionOfEachEntry) {
    MenuTexts menus;
    EXPECT_FALSE(menus.has("sp", 2));
    menus.setText("sp", 2, TextKind::Caption, "Spectrum");
    menus.setText("sp", 0, TextKind::Caption, "None");
    menus.setText("sp", 0, TextKind::Caption, "");
    EXPECT_EQ(menus.caption("sp", 2), "Spectrum");
    EXPECT_TRUE(menus.has("sp", 0));
    EXPECT_EQ(menus.caption("sp", 0), "");
    EXPECT_EQ(menus.caption("mnuExit"), "");
}

TEST_F(MultiLNGTest, withItsSwitchMissingWordsAreTheEnglishOnes) {
    base::Comfort comfort;
    language_.obey(comfort);
    const test::TemporaryFolder shipped;
    shipped.write("Languages/English.lng", "[Prompt]\r\nitem0=shipped\r\nitem1=shipped\r\n");
    write("[Prompt]\r\nitem2=own\r\n");
    MultiLNG language(paths_, shipped.path());
    language.obey(comfort);
    for (const char* const name : {"Test", "None"}) {
        const bool has = std::string_view(name) == "Test";
        language.Language_File(name);
        comfort.keepsMissingWords = false;
        EXPECT_EQ(language.get_Prompt_String(0), "");
        comfort.keepsMissingWords = true;
        EXPECT_EQ(language.get_Prompt_String(0), "shipped");
        EXPECT_EQ(language.get_Prompt_String(2), has ? "own" : "");
    }
    folder_.write("Languages/English.lng", "[Prompt]\r\nitem0=the user's\r\n");
    EXPECT_EQ(language.get_Prompt_String(0), "the user's");
    EXPECT_EQ(language.get_Prompt_String(1), "shipped");
}

} // namespace
} // namespace tovik::config
