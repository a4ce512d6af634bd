// SPDX-License-Identifier: GPL-3.0-or-later
// Comfort from the start of the program to its page in the preferences.
#include "app/PreferencesDialogRig.h"
#include "player/ComfortSettings.h"

#include <QLabel>
#include <QScrollArea>

namespace tovik::test {
namespace {

using preferences::Page;

base::Comfort all() {
    return base::ComfortChoices{.master = true}.record();
}

class ComfortStart : public AppRig {};

TEST_F(ComfortStart, withoutAKeyThereIsNone) {
    start();
    EXPECT_EQ(player().state().comfort, base::Comfort());
}

TEST_F(ComfortStart, theSettingsAreReadBeforeAnythingElse) {
    put("CMF", "1");
    put("CMF10", "0");
    const std::string before = host_.folder.read(kSettings);
    player().ground().readComfort();
    base::ComfortChoices expected{.master = true};
    expected.own.at(9) = false;
    EXPECT_EQ(player().state().comfort, expected.record());
    EXPECT_EQ(host_.folder.read(kSettings), before);
    endPlayer();
    player().Form_Initialize();
    EXPECT_EQ(player().state().comfort, expected.record());
}

TEST_F(ComfortStart, theCommandLineOverrulesTheSettingsAndLeavesThem) {
    put("CMF", "1");
    put("CMF10", "1");
    options_.comfort = false;
    start();
    EXPECT_EQ(player().state().comfort, base::Comfort());
    endPlayer();
    set("CMF", "0");
    set("CMF10", "0");
    options_.comfort = true;
    start();
    EXPECT_EQ(player().state().comfort, all());
    EXPECT_EQ(setting("CMF"), "0");
    EXPECT_EQ(setting("CMF10"), "0");
}

class ComfortPage : public PreferencesDialogRig {
protected:
    void onPage(const std::function<void(QDialog&)>& act) {
        open([&](QDialog& dialog) {
            turnTo(dialog, Page::comfort, By::keyboard);
            act(dialog);
        });
    }
};

TEST_F(ComfortPage, saysWhatTheTableSays) {
    onPage([](QDialog& dialog) {
        for (std::size_t number = 1; number <= base::kComfortSwitches.size(); ++number) {
            EXPECT_EQ(control<QCheckBox>(dialog, "Comfort_" + QString::number(number))
                          .text()
                          .toStdString(),
                      base::kComfortSwitches.at(number - 1).words);
        }
        EXPECT_EQ(control<QTabWidget>(dialog, "TabStrip1").tabText(int(Page::comfort)), "Comfort");
        EXPECT_FALSE(control<QLabel>(dialog, "ComfortOfRun").isVisible());
    });
}

TEST_F(ComfortPage, theMasterShowsOnItsSwitchesAndActsAtOnce) {
    onPage([this](QDialog& dialog) {
        control<QCheckBox>(dialog, "Comfort_0").click();
        EXPECT_TRUE(control<QCheckBox>(dialog, "Comfort_22").isChecked());
        press(dialog, "Command7");
        EXPECT_EQ(player().state().comfort, all());
        EXPECT_EQ(setting("CMF"), "1");
    });
}

TEST_F(ComfortPage, aSwitchComesIntoSightWithTheKeyboard) {
    onPage([](QDialog& dialog) {
        dialog.resize(dialog.minimumSizeHint());
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        const auto& area = *dialog.findChild<QScrollArea*>();
        for (const char* const name : {"Comfort_22", "Comfort_1"}) {
            auto& box = control<QCheckBox>(dialog, name);
            const auto isInSight = [&] {
                return area.viewport()->rect().contains(
                    QRect(box.mapTo(area.viewport(), QPoint()), box.size()).center());
            };
            box.setFocus(Qt::BacktabFocusReason);
            EXPECT_TRUE(isInSight()) << name;
        }
    });
}

TEST_F(ComfortPage, saysThatTheCommandLineDecides) {
    player().ground().state.ComfortOfRun = true;
    onPage([](QDialog& dialog) {
        auto& said = control<QLabel>(dialog, "ComfortOfRun");
        EXPECT_TRUE(said.isVisible());
        EXPECT_TRUE(said.text().startsWith("The command line decides"));
    });
}

} // namespace
} // namespace tovik::test
