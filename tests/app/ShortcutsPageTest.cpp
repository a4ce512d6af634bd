// SPDX-License-Identifier: GPL-3.0-or-later
// The page of shortcuts in the preferences.
#include "app/PreferencesDialogRig.h"

namespace tovik::test {
namespace {

using preferences::Page;

/// Those of the player itself.
class ShortcutsOfMenus : public PreferencesDialogRig {};

TEST_F(ShortcutsOfMenus, newKeysOfTheMenusAreKeptInTheirFile) {
    constexpr int kExitRow = 24;
    constexpr int kMiniRow = 20;
    open([&](QDialog& dialog) {
        control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::shortcuts));
        auto& rows = control<QTreeWidget>(dialog, "Shortcuts");
        auto& edit = control<QLineEdit>(dialog, "ShortcutEdit");
        rows.setCurrentItem(rows.topLevelItem(kMiniRow));
        EXPECT_FALSE(edit.isEnabled()) << "no menu has it";
        rows.setCurrentItem(rows.topLevelItem(kExitRow));
        QTest::keyClick(&edit, Qt::Key_Q, Qt::ControlModifier);
        press(dialog, "Command1");
    });
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "db/shortcuts.dat"));
    player().kill_me();
    EXPECT_THAT(host_.folder.read("db/shortcuts.dat"), testing::HasSubstr("mnuExit"));
    EXPECT_THAT(host_.folder.read("db/shortcuts.dat"), testing::HasSubstr("Ctrl+Q"));
}

class ShortcutsOfPreferences : public PreferencesDialogRig {
protected:
    ShortcutsOfPreferences() {
        play_ = menus_.AddItem("&Play", "play");
        stop_ = menus_.AddItem("&Stop", "stop");
        player().choices().preferences.shortcuts.attach(
            {.menus = &menus_, .entryOf = [this](commands::CommandId id) {
                 return id == commands::CommandId::play   ? play_
                        : id == commands::CommandId::stop ? stop_
                                                          : 0;
             }});
    }

    static constexpr int kPlayRow = 9;
    static constexpr int kStopRow = 11;

    void onPage(const std::function<void(QDialog&, QTreeWidget&, QLineEdit&)>& act) {
        open([&](QDialog& dialog) {
            control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::shortcuts));
            act(dialog, control<QTreeWidget>(dialog, "Shortcuts"),
                control<QLineEdit>(dialog, "ShortcutEdit"));
        });
    }

    static QString said(QDialog& dialog) { return control<QLabel>(dialog, "ShortcutSaid").text(); }

    menus::cMenus menus_;
    int play_ = 0;
    int stop_ = 0;
};

TEST_F(ShortcutsOfPreferences, newKeysAreTakenByPressingThem) {
    onPage([&](QDialog& dialog, QTreeWidget& rows, QLineEdit& edit) {
        ASSERT_EQ(rows.topLevelItemCount(), 36);
        EXPECT_EQ(rows.topLevelItem(kPlayRow)->text(0), "Play");
        EXPECT_EQ(rows.topLevelItem(kPlayRow)->text(2), "X");
        rows.setCurrentItem(rows.topLevelItem(kPlayRow));
        edit.setFocus();
        QTest::keyClick(&edit, Qt::Key_Control, Qt::ControlModifier);
        EXPECT_EQ(edit.text(), "");
        QTest::keyClick(&edit, Qt::Key_O, Qt::AltModifier); // the mnemonic of OK elsewhere
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(edit.text(), "Alt+O");
        QTest::keyClick(&edit, Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(edit.text(), "Ctrl+Shift+K");
        EXPECT_EQ(rows.topLevelItem(kPlayRow)->text(1), "Ctrl+Shift+K");
        EXPECT_EQ(menus_.ItemKeyAccel(play_), "");
        press(dialog, "Command1");
    });
    EXPECT_EQ(menus_.ItemKeyAccel(play_), "Ctrl+Shift+K");
    onPage([&](QDialog& dialog, QTreeWidget& rows, QLineEdit& edit) {
        rows.setCurrentItem(rows.topLevelItem(kPlayRow));
        EXPECT_EQ(edit.text(), "Ctrl+Shift+K");
        press(dialog, "ShortcutClear");
        EXPECT_EQ(edit.text(), "");
        press(dialog, "Command7");
    });
    EXPECT_EQ(menus_.ItemKeyAccel(play_), "");
}

TEST_F(ShortcutsOfPreferences, aClashNamesTheOwnerAndAFixedKeyIsTold) {
    menus_.ItemKeyAccel(stop_, "Ctrl+K");
    onPage([&](QDialog& dialog, QTreeWidget& rows, QLineEdit& edit) {
        rows.setCurrentItem(rows.topLevelItem(kPlayRow));
        QTest::keyClick(&edit, Qt::Key_K, Qt::ControlModifier);
        EXPECT_EQ(edit.text(), "");
        EXPECT_EQ(said(dialog), "Refused: these are the keys of Stop.");
        QTest::keyClick(&edit, Qt::Key_D, Qt::ControlModifier);
        EXPECT_EQ(edit.text(), "Ctrl+D");
        EXPECT_EQ(said(dialog),
                  "From now on these keys no longer do what they always did: Add folder.");
    });
}

TEST_F(ShortcutsOfPreferences, aFixedKeyThatIsTakenIsStruckOutAndTold) {
    menus_.ItemKeyAccel(play_, "V");
    onPage([&](QDialog& dialog, QTreeWidget& rows, QLineEdit& /*edit*/) {
        EXPECT_TRUE(rows.topLevelItem(kStopRow)->font(2).strikeOut());
        EXPECT_FALSE(rows.topLevelItem(kPlayRow)->font(2).strikeOut());
        rows.setCurrentItem(rows.topLevelItem(kStopRow));
        EXPECT_EQ(said(dialog), "The key of the last column is that of Play by now.");
    });
}

TEST_F(ShortcutsOfMenus, keysThatWillNotBeKeptAreToldSo) {
    host_.folder.write("db/other", "not ours");
    EXPECT_THROW(player().menus().frmTSR.loadShortcuts(host_.folder / "db/other"),
                 base::RuntimeError);
    open([&](QDialog& dialog) {
        control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::shortcuts));
        EXPECT_THAT(control<QLabel>(dialog, "ShortcutSaid").text().toStdString(),
                    testing::HasSubstr("not kept"));
    });
}

TEST_F(ShortcutsOfPreferences, rowsWithoutAnEntryAreGreyAndStayAsTheyAre) {
    onPage([&](QDialog& dialog, QTreeWidget& rows, QLineEdit& edit) {
        const QColor grey = dialog.palette().color(QPalette::Disabled, QPalette::Text);
        EXPECT_EQ(rows.topLevelItem(35)->foreground(0).color(), grey);
        EXPECT_NE(rows.topLevelItem(kPlayRow)->foreground(0).color(), grey);
        rows.setCurrentItem(rows.topLevelItem(35));
        EXPECT_FALSE(edit.isEnabled());
        EXPECT_FALSE(control<QPushButton>(dialog, "ShortcutClear").isEnabled());
        EXPECT_EQ(said(dialog), "The keys of this command cannot be changed.");
    });
}

TEST_F(ShortcutsOfPreferences, escapeClosesFromTheFieldAndTabLeavesIt) {
    onPage([&](QDialog& dialog, QTreeWidget& rows, QLineEdit& edit) {
        rows.setCurrentItem(rows.topLevelItem(kPlayRow));
        edit.setFocus();
        QTest::keyClick(&edit, Qt::Key_Tab);
        EXPECT_NE(dialog.focusWidget(), &edit);
        edit.setFocus();
        QTest::keyClick(&edit, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

} // namespace
} // namespace tovik::test
