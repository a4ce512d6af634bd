// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that adds a folder, on the screen.
#include "dialogs/OpenDirectoryDialog.h"

#include "app/AppRig.h"
#include "dialogs/DialogOpener.h"

#include <array>
#include <QAbstractFileIconProvider>
#include <QFileSystemModel>
#include <QPushButton>

namespace tovik::test {
namespace {

class OpenDirectoryDialog : public AppRig {
protected:
    OpenDirectoryDialog() {
        host_.folder.write("m/a.mp3", "x");
        host_.folder.write("m/d/b.mp3", "x");
        set("CFLD", host_.folder / "m");
        start();
        opener_.attach(player().dialogs(), parent_);
    }

    void open() {
        opener_.open(window::WindowId::openDirectory);
        dialog_ = parent_.findChild<dialogs::OpenDirectoryDialog*>("frmOpenDirectory");
        ASSERT_NE(dialog_, nullptr);
    }

    void press(const char* button) { dialog_->findChild<QPushButton*>(button)->click(); }

    dialogs::DialogOpener opener_{host_.dispatcher};
    QWidget parent_;
    dialogs::OpenDirectoryDialog* dialog_ = nullptr;
};

TEST_F(OpenDirectoryDialog, bearsTheWordsOfTheLanguage) {
    open();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(dialog_->windowTitle(), "Add folder");
    EXPECT_EQ(dialog_->findChild<QCheckBox*>("Check1")->text(), "Search sub-folders");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1")->text(), "&Add");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command2")->text(), "&Cancel");
}

TEST_F(OpenDirectoryDialog, addsTheFolderOfTheLastTime) {
    open();
    EXPECT_FALSE(player().state().DirAddIdle);
    press("Command1");
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(player().stdSS().ListCount(), 1);
    EXPECT_TRUE(player().state().DirAddIdle);
}

TEST_F(OpenDirectoryDialog, withComfortALineTellsOfAFolderWithoutMusic) {
    player().ground().state.comfort.tellsEmptyFolder = true;
    host_.folder.write("none/d/b.mp3", "x");
    host_.folder.write("empty/x.txt", "x");
    const auto notice = [this] { return player().ground().screen.playing.notice; };
    for (const auto& [language, below, none] : std::vector<std::array<const char*, 3>>{
             {"English", "No music without sub-folders: none", "No music in empty"},
             {"Slovenian", "Brez podmap ni glasbe: none", "Ni glasbe v empty"}}) {
        player().ground().language.Language_File(language);
        open();
        dialog_->choose(host_.folder / "none");
        press("Command1");
        EXPECT_EQ(notice(), below);
        open();
        dialog_->choose(host_.folder / "empty");
        press("Command1");
        EXPECT_EQ(notice(), none);
        EXPECT_EQ(player().stdSS().ListCount(), 0);
        advance(10000);
        EXPECT_EQ(notice(), "");
    }
    EXPECT_THAT(host_.dialogs.boxes, testing::IsEmpty());
}

TEST_F(OpenDirectoryDialog, addsAnotherFolder) {
    open();
    dialog_->choose(host_.folder / "m/d");
    press("Command1");
    EXPECT_EQ(player().stdSS().text(1, playlist::RowText::Title), "b");
    EXPECT_EQ(setting("CFLD"), host_.folder / "m/d");
}

TEST_F(OpenDirectoryDialog, whatIsChosenStaysWhenItIsAskedForAgain) {
    open();
    dialog_->choose(host_.folder / "m/d");
    open();
    press("Command1");
    EXPECT_EQ(setting("CFLD"), host_.folder / "m/d");
}

TEST_F(OpenDirectoryDialog, addsWhatIsBelowWhenAsked) {
    open();
    dialog_->findChild<QCheckBox*>("Check1")->setChecked(true);
    press("Command1");
    EXPECT_EQ(player().stdSS().ListCount(), 3);
}

TEST_F(OpenDirectoryDialog, looksIntoNoFileForItsPicture) {
    open();
    for (const char* view : {"FolderTreeview1", "File1"}) {
        auto* const model =
            dynamic_cast<QFileSystemModel*>(dialog_->findChild<QAbstractItemView*>(view)->model());
        ASSERT_NE(model, nullptr);
        const QFileInfo song(QString::fromStdString(host_.folder / "m/a.mp3"));
        EXPECT_FALSE(model->iconProvider()->icon(song).isNull());
        EXPECT_EQ(model->iconProvider()->type(song), "");
    }
}

TEST_F(OpenDirectoryDialog, aFolderThatIsGoneLeavesTheChoice) {
    set("CFLD", host_.folder / "gone");
    open();
    press("Command1");
    EXPECT_NE(setting("CFLD"), "");
    EXPECT_NE(setting("CFLD"), host_.folder / "gone");
}

TEST_F(OpenDirectoryDialog, cancelAddsNothing) {
    open();
    press("Command2");
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_TRUE(player().state().DirAddIdle);
    EXPECT_EQ(player().stdSS().ListCount(), 0);
    open();
    EXPECT_FALSE(player().state().DirAddIdle);
    dialog_->close();
    EXPECT_TRUE(player().state().DirAddIdle);
}

TEST_F(OpenDirectoryDialog, staysInFrontWhereThePlayerDoes) {
    open();
    EXPECT_FALSE(dialog_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    set("ASOT", "1");
    open();
    EXPECT_TRUE(dialog_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(dialog_->isVisible());
}

} // namespace
} // namespace tovik::test
