// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog with the presets on the screen.
#include "dialogs/LoadPresetDialog.h"

#include "app/DialogRig.h"

#include <QPushButton>

namespace tovik::test {
namespace {

using testing::SizeIs;

class LoadPresetDialog : public DialogRig {
protected:
    LoadPresetDialog() {
        std::filesystem::remove(host_.folder / "Languages"); // a link to the shipped ones
        host_.folder.write("Languages/English.lng",
                           "[FrmLoadPreset]\nitem0=Presets\nitem1=Take\nitem2=Leave\nitem3=Try\n");
        begin();
    }

    void open(const std::function<void(QDialog&, QListWidget&)>& act) {
        with(window::WindowId::loadPreset,
             [&](QDialog& dialog) { act(dialog, control<QListWidget>(dialog, "List1")); });
    }

    static void press(QDialog& dialog, const char* button) {
        control<QPushButton>(dialog, button).click();
    }

    [[nodiscard]] std::int32_t firstSlider() { return player().tone().equalizer.eq_sld(0); }
};

TEST_F(LoadPresetDialog, holdsUpThePlayerAndListsTheNamesAnewAtEachOpening) {
    for (int times = 0; times < 2; ++times) {
        open([](QDialog& dialog, QListWidget& list) {
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_TRUE(dialog.isModal());
            ASSERT_EQ(list.count(), 20);
            EXPECT_EQ(list.item(14)->text(), "Bass cut");
            EXPECT_EQ(list.currentRow(), -1);
        });
    }
}

TEST_F(LoadPresetDialog, bearsTheWordsOfTheLanguage) {
    open([](QDialog& dialog, QListWidget& /*list*/) {
        EXPECT_EQ(dialog.windowTitle(), "Presets");
        EXPECT_EQ(control<QPushButton>(dialog, "Command1_0").text(), "Take");
        EXPECT_EQ(control<QPushButton>(dialog, "Command1_1").text(), "Leave");
        EXPECT_EQ(control<QPushButton>(dialog, "Command1_2").text(), "Try");
    });
}

TEST_F(LoadPresetDialog, loadTakesTheRowAndCloses) {
    open([](QDialog& dialog, QListWidget& list) {
        press(dialog, "Command1_0");
        EXPECT_TRUE(dialog.isVisible()) << "no row, nothing happens";
        list.setCurrentRow(13); // a gain of 9 in the lowest band
        press(dialog, "Command1_0");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(firstSlider(), 2);
}

TEST_F(LoadPresetDialog, applyStaysOpenAndCancelOnlyCloses) {
    open([this](QDialog& dialog, QListWidget& list) {
        list.setCurrentRow(13);
        press(dialog, "Command1_2");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(firstSlider(), 2);
        list.setCurrentRow(14);
        press(dialog, "Command1_1");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(firstSlider(), 2);
}

TEST_F(LoadPresetDialog, aDoubleClickTakesTheRow) {
    open([](QDialog& dialog, QListWidget& list) {
        list.setCurrentRow(14);
        emit list.itemDoubleClicked(list.item(14));
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(firstSlider(), 18);
}

TEST_F(LoadPresetDialog, anErrorIsReportedAndLeavesItOpen) {
    host_.folder.write(kSettings, "<Settings/>");
    open([](QDialog& dialog, QListWidget& list) {
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(list.count(), 0);
    });
    ASSERT_THAT(host_.errors, SizeIs(1));
    EXPECT_EQ(host_.errors[0].number(), 94);
}

} // namespace
} // namespace tovik::test
