// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog with the presets on the screen.
#include "dialogs/LoadPresetDialog.h"

#include "app/AppRig.h"
#include "dialogs/DialogOpener.h"

#include <QPushButton>

namespace tovik::test {
namespace {

using testing::SizeIs;

class LoadPresetDialog : public AppRig {
protected:
    LoadPresetDialog() {
        std::filesystem::remove(host_.folder / "Languages"); // a link to the shipped ones
        host_.folder.write("Languages/English.lng",
                           "[FrmLoadPreset]\nitem0=Presets\nitem1=Take\nitem2=Leave\nitem3=Try\n");
        start();
        opener_.attach(player().dialogs(), parent_);
    }

    void open() {
        opener_.open(window::WindowId::loadPreset);
        dialog_ = parent_.findChild<QDialog*>("frmLoadPreset");
        ASSERT_NE(dialog_, nullptr);
        list_ = dialog_->findChild<QListWidget*>("List1");
    }

    void press(const char* button) { dialog_->findChild<QPushButton*>(button)->click(); }

    [[nodiscard]] std::int32_t firstSlider() { return player().tone().equalizer.eq_sld(0); }

    dialogs::DialogOpener opener_{host_.dispatcher};
    QWidget parent_;
    QDialog* dialog_ = nullptr;
    QListWidget* list_ = nullptr;
};

TEST_F(LoadPresetDialog, listsTheNamesAnewAtEachOpening) {
    open();
    EXPECT_TRUE(dialog_->isVisible());
    ASSERT_EQ(list_->count(), 20);
    EXPECT_EQ(list_->item(14)->text(), "Bass cut");
    open();
    EXPECT_EQ(list_->count(), 20);
    EXPECT_EQ(list_->currentRow(), -1);
}

TEST_F(LoadPresetDialog, bearsTheWordsOfTheLanguage) {
    open();
    EXPECT_EQ(dialog_->windowTitle(), "Presets");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1_0")->text(), "Take");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1_1")->text(), "Leave");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1_2")->text(), "Try");
}

TEST_F(LoadPresetDialog, loadTakesTheRowAndCloses) {
    open();
    press("Command1_0");
    EXPECT_TRUE(dialog_->isVisible()) << "no row, nothing happens";
    list_->setCurrentRow(13); // a gain of 9 in the lowest band
    press("Command1_0");
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(firstSlider(), 2);
}

TEST_F(LoadPresetDialog, applyStaysOpenAndCancelOnlyCloses) {
    open();
    list_->setCurrentRow(13);
    press("Command1_2");
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(firstSlider(), 2);
    list_->setCurrentRow(14);
    press("Command1_1");
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(firstSlider(), 2);
}

TEST_F(LoadPresetDialog, aDoubleClickTakesTheRow) {
    open();
    list_->setCurrentRow(14);
    emit list_->itemDoubleClicked(list_->item(14));
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(firstSlider(), 18);
}

TEST_F(LoadPresetDialog, anErrorIsReportedAndLeavesItOpen) {
    host_.folder.write(kSettings, "<Settings/>");
    open();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(list_->count(), 0);
    ASSERT_THAT(host_.errors, SizeIs(1));
    EXPECT_EQ(host_.errors[0].number(), 94);
}

} // namespace
} // namespace tovik::test
