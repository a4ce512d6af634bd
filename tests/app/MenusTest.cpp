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

} // namespace
} // namespace tovik::test
