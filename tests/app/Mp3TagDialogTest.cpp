// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor on the screen.
#include "dialogs/Mp3TagDialog.h"

#include "app/AppRig.h"
#include "dialogs/DialogOpener.h"
#include "dialogs/DialogTable.h"
#include "tags/Samples.h"

#include <algorithm>
#include <array>
#include <QPushButton>
#include <QTest>

namespace tovik::test {
namespace {

using namespace tags::samples;
using testing::ElementsAre;
using testing::IsEmpty;

using dialogs::DialogKind;
using dialogs::DialogRow;

const DialogRow& tableRow() {
    return *std::ranges::find(dialogs::dialogTable(), window::WindowId::mp3Tag, &DialogRow::window);
}

class Mp3TagDialog : public AppRig {
protected:
    Mp3TagDialog() {
        start();
        opener_.attach(player().dialogs(), parent_);
    }

    // One that goes on waits for nobody: as a test wants it.
    const std::array<DialogRow, 1> beside_{
        DialogRow{tableRow().window, DialogKind::beside, tableRow().make}};

    /// The dialog for a file of these bytes as the selected row.
    void open(const std::string& bytes) {
        path_ = host_.folder.write("song.mp3", bytes);
        player().stdSS().Clear();
        player().stdSS().AddItem(path_, path_, "Song", "00:01", 1);
        player().stdSS().SelectIndex(1);
        opener_.open(window::WindowId::mp3Tag);
        dialog_ = parent_.findChild<QDialog*>("frmMp3Tag");
        ASSERT_NE(dialog_, nullptr);
    }

    template <typename Widget>
    Widget& at(const char* name) {
        auto* const widget = dialog_->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }

    [[nodiscard]] std::string file() const { return host_.folder.read("song.mp3"); }

    dialogs::DialogOpener opener_{host_.dispatcher, beside_};
    QWidget parent_;
    QDialog* dialog_ = nullptr;
    std::string path_;
    const std::string mp3_ = tags::samples::sound(20);
    const std::string version1_ = "TAG" + field("Title", 30) + field("Artist", 30) +
                                  field("\xC4lbum", 30) + "1999" + field("Comment", 28) +
                                  "\0\x07\x11"s;
};

TEST_F(Mp3TagDialog, opensForTheSelectedRowOnly) {
    player().stdSS().Clear();
    player().commands().run(commands::CommandId::editTag);
    EXPECT_THAT(windows_.opened, IsEmpty());
    player().stdSS().AddItem("/a.mp3", "/a.mp3", "a", "", 0);
    player().commands().run(commands::CommandId::editTag);
    EXPECT_THAT(windows_.opened, IsEmpty());
    player().stdSS().SelectIndex(1);
    player().commands().run(commands::CommandId::editTag);
    EXPECT_THAT(windows_.opened, ElementsAre(window::WindowId::mp3Tag));
}

TEST_F(Mp3TagDialog, holdsUpTheOtherWindows) {
    EXPECT_EQ(tableRow().kind, DialogKind::first);
}

TEST_F(Mp3TagDialog, beginsAtWhatCanBeTyped) {
    open(mp3_ + version1_);
    EXPECT_EQ(dialog_->focusWidget(), &at<QLineEdit>("Text2_0"));
    open(mp3_);
    EXPECT_EQ(dialog_->focusWidget(), &at<QCheckBox>("Check1"));
}

TEST_F(Mp3TagDialog, theTabKeyGoesDownThePages) {
    open(mp3_ + version1_);
    std::vector<std::string> names;
    for (const QWidget* widget = &at<QCheckBox>("Check1"); widget != &at<QWidget>("Command1_0");
         widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0) {
            names.push_back(widget->objectName().toStdString());
        }
    }
    EXPECT_THAT(names, ElementsAre("Check1", "Text2_0", "Text2_1", "Text2_2", "Text2_3", "Text2_4",
                                   "Text5", "genre", "Command2_0", "Check2", "Text4_0", "Text4_1",
                                   "Text4_9", "Text4_2", "Text4_3", "Text3", "Genre2", "Text4_4",
                                   "Text4_5", "Text4_6", "Text4_7", "Text4_8", "Command2_1"));
}

TEST_F(Mp3TagDialog, keysTurnThePagesWhereverTheFocusIs) {
    open(mp3_ + version1_);
    auto& tabs = at<QTabWidget>("TabStrip1");
    for (const char* const name : {"Text1", "Command1_1", "TabStrip1"}) {
        QWidget& from = at<QWidget>(name);
        from.setFocus();
        for (const int page : {1, 2, 0}) {
            QTest::keyClick(&from, Qt::Key_Tab, Qt::ControlModifier);
            EXPECT_EQ(tabs.currentIndex(), page) << name;
        }
        QTest::keyClick(&from, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(tabs.currentIndex(), 2) << name;
        tabs.setCurrentIndex(0);
    }
}

TEST_F(Mp3TagDialog, bearsTheWordsOfTheLanguage) {
    open(mp3_ + version1_);
    EXPECT_EQ(dialog_->windowTitle(), "File information");
    auto& tabs = at<QTabWidget>("TabStrip1");
    EXPECT_EQ(tabs.tabText(0), "ID3v1");
    EXPECT_EQ(tabs.tabText(1), "ID3v2");
    EXPECT_EQ(tabs.tabText(2), "MPEG data");
    EXPECT_EQ(at<QPushButton>("Command1_0").text(), "&Save");
    EXPECT_EQ(at<QPushButton>("Command1_1").text(), "&Close");
    EXPECT_EQ(at<QPushButton>("Command1_2").text(), "&Reload");
    EXPECT_EQ(at<QLabel>("Label1_2").text(), "Album");
    EXPECT_EQ(at<QLabel>("Label2_2").text(), "Album");
    EXPECT_EQ(at<QLineEdit>("Text4_9").accessibleName(), "Album");
    EXPECT_EQ(at<QLineEdit>("Text4_8").accessibleName(), "Encoded by");
    EXPECT_EQ(at<QComboBox>("Genre2").accessibleName(), "Genre");
    for (QWidget* const widget : dialog_->findChildren<QWidget*>()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 &&
            (qobject_cast<QLineEdit*>(widget) != nullptr ||
             qobject_cast<QComboBox*>(widget) != nullptr)) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        }
    }
}

TEST_F(Mp3TagDialog, showsTheTechnicalPage) {
    open(mp3_);
    EXPECT_EQ(at<QLabel>("Label3_0").text(), "File size");
    EXPECT_EQ(at<QLabel>("Label4_0").text().toStdString(), std::to_string(mp3_.size()) + " bytes");
    EXPECT_EQ(at<QLabel>("Label4_6").text(), "1.0");
    EXPECT_EQ(at<QLabel>("Label4_7").text(), "3");
    EXPECT_EQ(at<QLabel>("Label4_8").text(), "No");
    EXPECT_EQ(at<QLabel>("Label4_10").text(), "Yes");
    EXPECT_EQ(at<QLabel>("Label4_10").accessibleName(), "Valid header Yes");
}

TEST_F(Mp3TagDialog, fieldsGoByTheirTicks) {
    open(mp3_ + version1_);
    EXPECT_TRUE(at<QCheckBox>("Check1").isChecked());
    EXPECT_TRUE(at<QLineEdit>("Text2_2").isEnabled());
    EXPECT_EQ(at<QLineEdit>("Text2_2").text().toStdString(), "\xC3\x84lbum");
    EXPECT_EQ(at<QComboBox>("genre").currentText(), "Rock");
    EXPECT_FALSE(at<QCheckBox>("Check2").isChecked());
    EXPECT_FALSE(at<QLineEdit>("Text4_0").isEnabled());
    at<QCheckBox>("Check2").click();
    EXPECT_TRUE(at<QLineEdit>("Text4_0").isEnabled());
    at<QCheckBox>("Check1").click();
    EXPECT_FALSE(at<QLineEdit>("Text2_2").isEnabled());
    EXPECT_EQ(at<QLineEdit>("Text2_2").text(), "");
    EXPECT_EQ(at<QComboBox>("genre").currentIndex(), 0);
}

TEST_F(Mp3TagDialog, savesWhatWasTypedAndCloses) {
    open(mp3_ + version1_);
    EXPECT_TRUE(dialog_->isVisible());
    at<QLineEdit>("Text2_0").clear();
    QTest::keyClicks(&at<QLineEdit>("Text2_0"), "New");
    at<QPushButton>("Command2_0").click();
    EXPECT_EQ(at<QLineEdit>("Text4_0").text(), "New");
    at<QPushButton>("Command1_0").click();
    EXPECT_FALSE(dialog_->isVisible());
    const std::string saved = file();
    EXPECT_EQ(saved.substr(saved.size() - 128), "TAG" + field("New", 30) + version1_.substr(33));
    EXPECT_EQ(saved.substr(2048, mp3_.size()), mp3_);
    EXPECT_NE(saved.find(textFrame("TALB", "\xC4lbum")), std::string::npos);
    EXPECT_NE(saved.find(textFrame("TIT2", "New")), std::string::npos);
}

TEST_F(Mp3TagDialog, aFileOfAnotherFormatHasOnePage) {
    base::Comfort& comfort = player().ground().state.comfort;
    for (bool base::Comfort::*const member :
         {&base::Comfort::readsSevenBits, &base::Comfort::decodesFrames,
          &base::Comfort::readsWholeGenre, &base::Comfort::savesWithoutAlarm,
          &base::Comfort::showsOwnGenre, &base::Comfort::editsEveryFormat,
          &base::Comfort::looksForTagFirst, &base::Comfort::cutsRemovedTag}) {
        comfort.*member = true;
    }
    open(flac({"TITLE=Song", "GENRE=Shoegaze"}, "no picture"));
    EXPECT_EQ(at<QTabWidget>("TabStrip1").currentIndex(), 1);
    EXPECT_EQ(at<QTabWidget>("TabStrip1").tabText(1), "Vorbis");
    EXPECT_EQ(at<QCheckBox>("Check2").text(), "Vorbis tag");
    EXPECT_FALSE(at<QCheckBox>("Check1").isEnabled());
    EXPECT_TRUE(at<QCheckBox>("Check2").isChecked());
    EXPECT_EQ(at<QLineEdit>("Text4_0").text(), "Song");
    EXPECT_EQ(at<QComboBox>("Genre2").currentText(), "Shoegaze");
    EXPECT_TRUE(at<QPushButton>("Command1_0").isEnabled());
    EXPECT_FALSE(at<QPushButton>("Command2_0").isEnabled());
    open(mp3_);
    EXPECT_EQ(at<QTabWidget>("TabStrip1").tabText(1), "ID3v2");
    EXPECT_EQ(at<QCheckBox>("Check2").text(), "ID3v2 tag");
    EXPECT_EQ(at<QComboBox>("Genre2").count(), 149);
    EXPECT_TRUE(at<QCheckBox>("Check1").isEnabled());
}

TEST_F(Mp3TagDialog, escapeClosesAndLeavesTheFile) {
    open(mp3_ + version1_);
    QTest::keyClicks(&at<QLineEdit>("Text2_0"), "New");
    QTest::keyClick(dialog_, Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(file(), mp3_ + version1_);
    open(mp3_ + version1_);
    EXPECT_EQ(at<QLineEdit>("Text2_0").text(), "Title");
}

TEST_F(Mp3TagDialog, whatIsNoMpegAudioCannotBeSaved) {
    open("OggS" + mp3_);
    EXPECT_FALSE(at<QPushButton>("Command1_0").isEnabled());
    EXPECT_FALSE(at<QPushButton>("Command2_0").isEnabled());
    EXPECT_FALSE(at<QPushButton>("Command2_1").isEnabled());
    EXPECT_EQ(at<QLabel>("Reason_0").text(),
              "This file is no MPEG audio: its tags cannot be changed.");
    EXPECT_TRUE(at<QPushButton>("Command1_1").isEnabled());
    open(mp3_);
    EXPECT_TRUE(at<QPushButton>("Command1_0").isEnabled());
    EXPECT_EQ(at<QLabel>("Reason_0").text(), "");
}

} // namespace
} // namespace tovik::test
