// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog with the presets on the screen.
#include "dialogs/LoadPresetDialog.h"

#include "app/AppRig.h"

#include <memory>
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
        player().commands().run(commands::CommandId::loadPreset);
        dialog_ = std::make_unique<dialogs::LoadPresetDialog>(
            *window_.loadPreset, player().language(), host_.dispatcher, nullptr);
        list_ = dialog_->findChild<QListWidget*>("List1");
    }

    void press(const char* button) { dialog_->findChild<QPushButton*>(button)->click(); }

    [[nodiscard]] std::int32_t firstSlider() { return player().equalizer().eq_sld(0); }

    std::unique_ptr<dialogs::LoadPresetDialog> dialog_;
    QListWidget* list_ = nullptr;
};

TEST_F(LoadPresetDialog, listsTheNamesAnewAtEachOpening) {
    dialog_->open();
    EXPECT_TRUE(dialog_->isVisible());
    ASSERT_EQ(list_->count(), 20);
    EXPECT_EQ(list_->item(14)->text(), "Bass cut");
    dialog_->open();
    EXPECT_EQ(list_->count(), 20);
    EXPECT_EQ(list_->currentRow(), -1);
}

TEST_F(LoadPresetDialog, bearsTheWordsOfTheLanguage) {
    dialog_->open();
    EXPECT_EQ(dialog_->windowTitle(), "Presets");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1_0")->text(), "Take");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1_1")->text(), "Leave");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1_2")->text(), "Try");
}

TEST_F(LoadPresetDialog, loadTakesTheRowAndCloses) {
    dialog_->open();
    press("Command1_0");
    EXPECT_TRUE(dialog_->isVisible()) << "no row, nothing happens";
    list_->setCurrentRow(13); // a gain of 9 in the lowest band
    press("Command1_0");
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(firstSlider(), 2);
}

TEST_F(LoadPresetDialog, applyStaysOpenAndCancelOnlyCloses) {
    dialog_->open();
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
    dialog_->open();
    list_->setCurrentRow(14);
    emit list_->itemDoubleClicked(list_->item(14));
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(firstSlider(), 18);
}

TEST_F(LoadPresetDialog, anErrorIsReportedAndLeavesItOpen) {
    host_.folder.write(kSettings, "<Settings/>");
    dialog_->open();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(list_->count(), 0);
    ASSERT_THAT(host_.errors, SizeIs(1));
    EXPECT_EQ(host_.errors[0].number(), 94);
}

} // namespace
} // namespace tovik::test
