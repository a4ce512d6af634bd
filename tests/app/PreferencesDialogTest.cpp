// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences on the screen: every control by mouse and keyboard.
#include "dialogs/PreferencesDialog.h"

#include "app/DialogRig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTreeWidget>

namespace tovik::test {
namespace {

using preferences::Control;
using preferences::ControlKind;
using preferences::ControlRow;
using preferences::Page;
using window::WindowId;

class PreferencesDialog : public DialogRig {
protected:
    PreferencesDialog() { begin(); }

    void open(const std::function<void(QDialog&)>& act) { with(WindowId::preferences, act); }

    [[nodiscard]] preferences::PreferenceValues& values() {
        return player().choices().preferences.values();
    }

    static void press(QDialog& dialog, const char* button) {
        QTest::mouseClick(&control<QPushButton>(dialog, button), Qt::LeftButton);
    }

    /// Changes a control as a user would; returns whether it is one that can be changed.
    bool change(QDialog& dialog, const ControlRow& row) {
        auto& tabs = control<QTabWidget>(dialog, "TabStrip1");
        tabs.setCurrentIndex(static_cast<int>(row.page));
        const QString name = QString::fromUtf8(row.name.data(), qsizetype(row.name.size()));
        auto& widget = control<QWidget>(dialog, name);
        EXPECT_TRUE(widget.isVisible()) << row.name;
        if (!widget.isEnabled()) {
            return false;
        }
        widget.setFocus();
        switch (row.kind) {
        case ControlKind::check:
            QTest::keyClick(&widget, Qt::Key_Space);
            return true;
        case ControlKind::slider:
            QTest::keyClick(&widget, Qt::Key_Right);
            return true;
        case ControlKind::choice:
            QTest::keyClick(&widget, Qt::Key_Down);
            return true;
        case ControlKind::ticks:
            QTest::keyClick(&widget, Qt::Key_Home);
            QTest::keyClick(&widget, Qt::Key_Space);
            return true;
        case ControlKind::folder:
            next([&](QDialog& folder) {
                control<QLineEdit>(folder, "Text1").setText("/music/" + name);
                press(folder, "Command1_0");
            });
            QTest::mouseClick(&widget, Qt::LeftButton);
            return true;
        }
        return false;
    }

    /// What a control holds, as text.
    [[nodiscard]] std::string held(Control control) {
        return control == Control::List1
                   ? values().types().to_string()
                   : std::to_string(values().number(control)) + " " + values().text(control);
    }
};

TEST_F(PreferencesDialog, eachControlIsChangedByTheKeyboardKeptAndReadBack) {
    int changed = 0;
    for (const ControlRow& row : preferences::controlTable()) {
        std::string before;
        std::string after;
        open([&](QDialog& dialog) {
            before = held(row.control);
            changed += change(dialog, row) ? 1 : 0;
            after = held(row.control);
            press(dialog, "Command1");
            EXPECT_FALSE(dialog.isVisible()) << row.name;
        });
        if (row.control != Control::Check14) { // nothing looks up discs yet
            EXPECT_NE(before, after) << row.name;
        }
        open([&](QDialog&) { EXPECT_EQ(held(row.control), after) << row.name; });
    }
    EXPECT_EQ(changed, preferences::kControls - 1);
    EXPECT_TRUE(host_.errors.empty());
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

TEST_F(PreferencesDialog, aTickIsChangedByTheMouse) {
    open([&](QDialog& dialog) {
        for (const ControlRow& row : preferences::controlTable()) {
            if (row.kind != ControlKind::check || row.control == Control::Check14) {
                continue;
            }
            control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(static_cast<int>(row.page));
            auto& box = control<QCheckBox>(
                dialog, QString::fromUtf8(row.name.data(), qsizetype(row.name.size())));
            const bool before = values().ticked(row.control);
            QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
            EXPECT_NE(values().ticked(row.control), before) << row.name;
            EXPECT_EQ(box.isChecked(), values().ticked(row.control)) << row.name;
        }
    });
}

TEST_F(PreferencesDialog, escapeAndCancelWriteNothing) {
    const std::string before = host_.folder.read(kSettings);
    for (const bool escape : {true, false}) {
        open([&](QDialog& dialog) {
            change(dialog, preferences::rowOf(Control::Check7));
            if (escape) {
                QTest::keyClick(&dialog, Qt::Key_Escape);
            } else {
                press(dialog, "Command5");
            }
            EXPECT_FALSE(dialog.isVisible());
        });
        EXPECT_EQ(host_.folder.read(kSettings), before);
        EXPECT_FALSE(player().state().CrossfadeOn);
    }
}

TEST_F(PreferencesDialog, applyActsAndStaysOpen) {
    open([&](QDialog& dialog) {
        change(dialog, preferences::rowOf(Control::Check10));
        press(dialog, "Command7");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(player().state().ShuffleOn);
        EXPECT_EQ(setting("SHF"), "1");
    });
}

TEST_F(PreferencesDialog, ticksForTheVolumeShowAsAPair) {
    open([&](QDialog& dialog) {
        auto& track = control<QCheckBox>(dialog, "Check2");
        auto& output = control<QCheckBox>(dialog, "Check15");
        EXPECT_TRUE(track.isChecked());
        output.click();
        EXPECT_FALSE(track.isChecked());
        output.click();
        EXPECT_TRUE(track.isChecked());
        EXPECT_FALSE(output.isChecked());
    });
}

TEST_F(PreferencesDialog, theBitRateFollowsTheFormat) {
    open([&](QDialog& dialog) {
        control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::ripper));
        auto& format = control<QComboBox>(dialog, "Combo1");
        auto& rate = control<QSlider>(dialog, "Slider2");
        auto& label = control<QLabel>(dialog, "Label7");
        EXPECT_EQ(label.text(), "128 kbps");
        QTest::keyClick(&rate, Qt::Key_Right);
        EXPECT_EQ(label.text(), "144 kbps");
        QTest::keyClick(&format, Qt::Key_Up);
        EXPECT_EQ(label.text(), "1411 kbps");
        EXPECT_FALSE(rate.isEnabled());
        QTest::keyClick(&format, Qt::Key_Down);
        EXPECT_EQ(label.text(), "144 kbps");
        EXPECT_TRUE(rate.isEnabled());
    });
}

TEST_F(PreferencesDialog, aHigherSpeedStandsOnTheRight) {
    open([&](QDialog& dialog) {
        control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::playback));
        const std::int32_t before = values().number(Control::Slider4);
        QTest::keyClick(&control<QSlider>(dialog, "Slider4"), Qt::Key_Right);
        EXPECT_LT(values().number(Control::Slider4), before);
    });
}

TEST_F(PreferencesDialog, theButtonsOfTheFileTypes) {
    open([&](QDialog& dialog) {
        control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::fileTypes));
        EXPECT_FALSE(control<QPushButton>(dialog, "Command2_0").isEnabled());
        press(dialog, "Command2_1");
        auto& list = control<QListWidget>(dialog, "List1");
        ASSERT_EQ(list.count(), 15);
        EXPECT_EQ(list.item(14)->checkState(), Qt::Checked);
        EXPECT_TRUE(values().types().all());
        press(dialog, "Command2_2");
        EXPECT_EQ(list.item(14)->checkState(), Qt::Unchecked);
    });
    std::size_t associated = 0;
    player().choices().preferences.hooks.associate = [&](auto extensions) {
        associated = extensions.size();
    };
    open([&](QDialog& dialog) {
        control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(int(Page::fileTypes));
        press(dialog, "Command2_1");
        press(dialog, "Command2_0");
    });
    EXPECT_EQ(associated, 15U);
}

TEST_F(PreferencesDialog, aLanguageReachesEveryWindowAtOnceAndCancelKeepsIt) {
    open([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Preferences");
        QTest::keyClick(&control<QComboBox>(dialog, "Combo3"), Qt::Key_Down);
        EXPECT_EQ(dialog.windowTitle(), "Nastavitve");
        EXPECT_EQ(control<QTreeWidget>(dialog, "Shortcuts").topLevelItem(9)->text(0), "Predvajaj");
        EXPECT_EQ(control<QTreeWidget>(dialog, "Shortcuts").headerItem()->text(1), "Tipke");
        EXPECT_EQ(player().elements().get(window::MainElement::playup).tooltip, "Predvajaj");
        EXPECT_EQ(setting("CLNG"), "Slovenian");
        press(dialog, "Command5");
    });
    EXPECT_EQ(setting("CLNG"), "Slovenian");
    open([&](QDialog& dialog) {
        EXPECT_EQ(control<QComboBox>(dialog, "Combo3").currentText(), "Slovenian");
    });
}

TEST_F(PreferencesDialog, opensOnThePageThatWasAskedForWithTheFocusInIt) {
    struct Begin {
        Page page;
        const char* focus;
    };

    constexpr auto kBegins = std::to_array<Begin>({{Page::general, "Check13"},
                                                   {Page::fileTypes, "List1"},
                                                   {Page::playback, "Check7"},
                                                   {Page::ripper, "Combo1"},
                                                   {Page::streaming, "Label1"},
                                                   {Page::versionHistory, "VersionHist"},
                                                   {Page::shortcuts, "Shortcuts"}});
    for (const Begin& begin : kBegins) {
        next([&](QDialog& dialog) {
            EXPECT_EQ(control<QTabWidget>(dialog, "TabStrip1").currentIndex(), int(begin.page));
            QWidget* const focus = dialog.focusWidget();
            ASSERT_NE(focus, nullptr) << begin.focus;
            EXPECT_EQ(focus->objectName(), begin.focus);
        });
        player().choices().preferences.openOn(begin.page);
    }
}

TEST_F(PreferencesDialog, pagesAreTurnedByKeysFromAnyControl) {
    open([&](QDialog& dialog) {
        auto& tabs = control<QTabWidget>(dialog, "TabStrip1");
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog)); // shortcuts want the active window
        for (int turn = 1; turn <= tabs.count(); ++turn) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
            EXPECT_EQ(tabs.currentIndex(), turn % tabs.count());
            EXPECT_TRUE(tabs.currentWidget()->isAncestorOf(dialog.focusWidget())) << turn;
        }
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab,
                        Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(tabs.currentIndex(), tabs.count() - 1);
    });
}

TEST_F(PreferencesDialog, theHistoryIsShown) {
    host_.folder.write("vh.txt", "0.1 is the first");
    open([&](QDialog& dialog) {
        EXPECT_EQ(control<QPlainTextEdit>(dialog, "VersionHist").toPlainText(), "0.1 is the first");
    });
}

TEST_F(PreferencesDialog, aDamagedSettingIsToldAndTheRestStaysUsable) {
    set("STI", "many");
    open([&](QDialog& dialog) {
        change(dialog, preferences::rowOf(Control::Check7));
        press(dialog, "Command1");
    });
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(setting("STI"), "many");
    EXPECT_EQ(setting("CFD"), "1");
}

TEST_F(PreferencesDialog, newKeysOfTheMenusAreKeptInTheirFile) {
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

class ShortcutsOfPreferences : public PreferencesDialog {
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
