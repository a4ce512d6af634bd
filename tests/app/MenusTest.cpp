// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the menus in the whole player.
#include "app/AppRig.h"
#include "window/QuickListRows.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using window::WindowId;

class Menus : public AppRig {
protected:
    Menus() {
        start();
        list_.Clear();
        for (const char* name : {"/a.mp3", "/b.mp3", "/c.mp3"}) {
            list_.AddItem(name, name, name, "00:01", 1);
        }
    }

    playlist::stdSS& list_ = player().stdSS();
    playlist::ListMirror& quick_ = player().List1();
    window::QuickListRows quickRows_{quick_, list_, player().music().playback.rows,
                                     &player().menus().frmTSR};
};

TEST_F(Menus, theInfoOfTheQuickListIsThatOfItsOwnSelection) {
    list_.SelectIndex(3);
    quick_.ListIndex(0);
    quickRows_.contextNowhere();
    EXPECT_TRUE(player().commands().enabled(CommandId::listInfo));
    player().commands().run(CommandId::listInfo);
    EXPECT_EQ(list_.SelectedIndex, 1);
    EXPECT_THAT(windows_.opened, ElementsAre(WindowId::mp3Tag));
}

TEST_F(Menus, aLocationIsAddedToTheStationsAndTheButtonOnlyGivesTheFocus) {
    player().commands().run(CommandId::locationButton);
    EXPECT_THAT(windows_.opened, testing::IsEmpty());
    player().commands().run(CommandId::addLocation);
    EXPECT_THAT(windows_.opened, ElementsAre(WindowId::addStation));
}

TEST_F(Menus, shortcutsThatCannotBeSavedKeepNothingElseFromBeingSaved) {
    auto& menus = player().menus().frmTSR.m_Menus;
    menus.ItemKeyAccel(menus.IndexForKey("mnuExit"), "Ctrl+Q");
    std::filesystem::create_directories(host_.folder / "db/shortcuts.dat/in the way");
    player().commands().run(CommandId::shuffle);
    player().kill_me();
    EXPECT_EQ(setting("SHF"), "1");
    EXPECT_THAT(logged(), testing::SizeIs(1));
}

TEST_F(Menus, aMissingSettingKeepsNoMenuAndNoAcceleratorBack) {
    host_.folder.write(kSettings, "<Settings/>");
    auto& menus = player().menus().frmTSR.m_Menus;
    menus.ItemKeyAccel(menus.IndexForKey("mnuLoop"), "Ctrl+R");
    const bool before = player().state().RepeatOn;
    EXPECT_TRUE(menus.KeyAccelPressed('R', 2));
    EXPECT_NE(player().state().RepeatOn, before);
}

} // namespace
} // namespace tovik::test
