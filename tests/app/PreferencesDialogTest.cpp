// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences on the screen: every control by mouse and keyboard.
#include "app/PreferencesDialogRig.h"

namespace tovik::test {
namespace {

using preferences::Control;
using preferences::ControlKind;
using preferences::ControlRow;
using preferences::Page;

class PreferencesDialog : public PreferencesDialogRig {};

class PreferencesByHand : public PreferencesDialogRig, public testing::WithParamInterface<bool> {};

TEST_P(PreferencesByHand, eachControlIsChangedKeptAndReadBack) {
    const By by = GetParam() ? By::mouse : By::keyboard;
    int changed = 0;
    // One of the sliders is for those who have the fourth switch.
    open([&](QDialog& dialog) {
        EXPECT_FALSE(control<QWidget>(dialog, "Slider1_2").isEnabled());
        EXPECT_TRUE(change(dialog, preferences::rowOf(preferences::comfortControl(4)), by));
        EXPECT_TRUE(control<QWidget>(dialog, "Slider1_2").isEnabled()) << "at once";
        press(dialog, "Command1");
    });
    for (const ControlRow& row : preferences::controlTable()) {
        std::string before;
        std::string after;
        open([&](QDialog& dialog) {
            before = held(row.control);
            changed += change(dialog, row, by) ? 1 : 0;
            after = held(row.control);
            press(dialog, "Command1");
            EXPECT_FALSE(dialog.isVisible()) << row.name;
        });
        EXPECT_NE(before, after) << row.name;
        open([&](QDialog&) { EXPECT_EQ(held(row.control), after) << row.name; });
    }
    EXPECT_EQ(changed, preferences::kControls);
    EXPECT_TRUE(host_.errors.empty());
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(By, PreferencesByHand, testing::Bool(), [](const auto& by) {
    return std::string(by.param ? "mouse" : "keyboard");
});

/// What is felt at the next start, by what the player holds after it.
struct Found {
    Control control;
    std::function<bool(const player::PlayerState&)> found;
};

TEST_F(PreferencesDialog, whatIsFeltAtTheNextStartIsFoundByIt) {
    using State = player::PlayerState;
    const std::vector<Found> all = {
        {Control::Check13, [](const State& state) { return state.CheckUpdates == 1; }},
        {Control::Check9, [](const State& state) { return state.ShowSplash; }},
        {Control::Check1, [](const State& state) { return state.MultipleInstances == 1; }},
        {Control::Check4, [](const State& state) { return state.ShowInTaskbar == 0; }},
        {Control::Check3, [](const State& state) { return state.AlwaysOnTop == 1; }},
        {Control::Check6, [](const State& state) { return state.AssociateAtStart == 1; }},
        {Control::Check7, [](const State& state) { return state.CrossfadeOn; }},
        {Control::Check8, [](const State& state) { return state.SilenceSkipOn; }},
        {Control::Check10, [](const State& state) { return state.ShuffleOn; }},
        {Control::Check11, [](const State& state) { return state.RepeatOn; }},
        {Control::Check17, [](const State& state) { return state.MessengerOn; }},
        {Control::Combo3, [](const State& state) { return state.LanguageFile == "Slovenian"; }},
    };
    open([&](QDialog& dialog) {
        for (const Found& one : all) {
            ASSERT_TRUE(change(dialog, preferences::rowOf(one.control)));
        }
        press(dialog, "Command1");
    });
    player().kill_me();
    app::frmPlayer next(host_.host(), sound_, window_, windows_, news_, {});
    next.Form_Initialize();
    next.Form_Load();
    for (const Found& one : all) {
        EXPECT_TRUE(one.found(next.state())) << preferences::rowOf(one.control).name;
    }
}

/// What acts at once, by what the running player does.
TEST_F(PreferencesDialog, whatActsAtOnceActsInTheRunningPlayer) {
    struct Acted {
        Control control;
        std::function<bool()> acted;
    };

    const player::PlayerState& state = player().state();
    const auto volumeOf = [this] { return callsOf("BASS_SetVolume"); };
    const std::size_t volumeBefore = volumeOf();
    const std::vector<Acted> all = {
        {Control::Check7, [&] { return state.CrossfadeOn; }},
        {Control::Check8, [&] { return state.SilenceSkipOn; }},
        {Control::Check10, [&] { return state.ShuffleOn; }},
        {Control::Check11, [&] { return state.RepeatOn; }},
        {Control::Check17, [&] { return state.MessengerOn; }},
        {Control::Slider1_0, [this] { return setting("CFDT") == "6"; }},
        {Control::Check15,
         [&] {
             player().music().playback.volume.change_volume(40, -1);
             return volumeOf() > volumeBefore;
         }},
        {Control::Combo3,
         [this] {
             return player().elements().get(window::MainElement::playup).tooltip == "Predvajaj";
         }},
    };
    for (const Acted& one : all) {
        open([&](QDialog& dialog) {
            ASSERT_TRUE(change(dialog, preferences::rowOf(one.control)));
            press(dialog, "Command1");
        });
        EXPECT_TRUE(one.acted()) << preferences::rowOf(one.control).name;
    }
}

TEST_F(PreferencesDialog, theWheelChangesNothingThatThePointerPasses) {
    open([&](QDialog& dialog) {
        for (const ControlRow& row : preferences::controlTable()) {
            control<QTabWidget>(dialog, "TabStrip1").setCurrentIndex(static_cast<int>(row.page));
            auto& widget = control<QWidget>(
                dialog, QString::fromUtf8(row.name.data(), qsizetype(row.name.size())));
            const std::string before = held(row.control);
            for (const int turn : {120, -120, -120}) {
                QWheelEvent event({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, turn},
                                  Qt::NoButton, {}, Qt::NoScrollPhase, false);
                QApplication::sendEvent(&widget, &event);
                EXPECT_EQ(held(row.control), before) << row.name;
            }
        }
    });
    EXPECT_EQ(setting("CLNG"), "English");
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
        EXPECT_EQ(player().view().core.screen.playing.balanceText,
                  player().elements().get(window::MainElement::Label4, 2).caption)
            << "what the display tells of the balance";
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

} // namespace
} // namespace tovik::test
