// SPDX-License-Identifier: GPL-3.0-or-later
// The search of the list on the screen.
#include "app/AppRig.h"
#include "dialogs/DialogOpener.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace tovik::test {
namespace {

class MusicSearchDialog : public AppRig {
protected:
    MusicSearchDialog() {
        start();
        for (const char* name : {"Blue", "blue moon", "Red", "Green"}) {
            player().stdSS().AddItem("", track(name), name, "01:05", 65);
        }
        opener_.attach(player().dialogs(), parent_);
    }

    void open() {
        opener_.open(window::WindowId::musicSearch);
        dialog_ = parent_.findChild<QDialog*>("frmJump2File");
        ASSERT_NE(dialog_, nullptr);
        text_ = dialog_->findChild<QLineEdit*>("SearchString");
        list_ = dialog_->findChild<QListView*>("List1");
    }

    [[nodiscard]] QStringList hits() const {
        QStringList titles;
        for (int row = 0; row < list_->model()->rowCount(); ++row) {
            titles.push_back(list_->model()->index(row, 0).data().toString());
        }
        return titles;
    }

    [[nodiscard]] QCheckBox& check(const char* name) const {
        return *dialog_->findChild<QCheckBox*>(name);
    }

    void key(Qt::Key key) { QTest::keyClick(text_, key); }

    dialogs::DialogOpener opener_{host_.dispatcher};
    QWidget parent_;
    QDialog* dialog_ = nullptr;
    QLineEdit* text_ = nullptr;
    QListView* list_ = nullptr;
};

TEST_F(MusicSearchDialog, bearsTheWordsOfTheLanguage) {
    open();
    EXPECT_FALSE(dialog_->isModal());
    EXPECT_EQ(dialog_->windowTitle(), "Music search");
    EXPECT_EQ(dialog_->findChild<QGroupBox*>("Frame1")->title(), "Search for");
    EXPECT_EQ(dialog_->findChild<QLabel*>("Label1")->text(), "Titles found: 4");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("Command1")->text(), "&Close");
    EXPECT_EQ(check("Check1_0").text(), "Exact match");
    EXPECT_EQ(check("Check1_1").text(), "Match case");
    EXPECT_EQ(text_->accessibleName(), "Search for");
    EXPECT_EQ(list_->accessibleName(), "Music search");
}

TEST_F(MusicSearchDialog, findsAtEachKey) {
    open();
    QTest::keyClicks(text_, "blu");
    EXPECT_EQ(hits(), QStringList({"Blue", "blue moon"}));
    EXPECT_EQ(list_->currentIndex().row(), 0);
    EXPECT_EQ(dialog_->findChild<QLabel*>("Label1")->text(), "Titles found: 2");
    QTest::keyClick(text_, Qt::Key_Backspace);
    QTest::keyClicks(text_, "ack");
    EXPECT_TRUE(hits().isEmpty());
    EXPECT_FALSE(list_->currentIndex().isValid());
}

TEST_F(MusicSearchDialog, theTickBoxesChangeTheSearchAndAreKept) {
    open();
    QTest::keyClicks(text_, "Blue");
    check("Check1_1").click();
    EXPECT_EQ(hits(), QStringList({"Blue"}));
    dialog_->reject();
    EXPECT_EQ(setting("MC"), "1");
    EXPECT_EQ(setting("EM"), "0");
    open();
    EXPECT_TRUE(check("Check1_1").isChecked());
    EXPECT_EQ(text_->text(), "");
    EXPECT_EQ(hits().size(), 4);
}

TEST_F(MusicSearchDialog, keysOfTheListWorkInTheText) {
    open();
    key(Qt::Key_Down);
    EXPECT_EQ(list_->currentIndex().row(), 1);
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(list_->currentIndex().row(), 3);
    key(Qt::Key_PageUp);
    EXPECT_EQ(list_->currentIndex().row(), 0);
    key(Qt::Key_PageDown);
    EXPECT_EQ(list_->currentIndex().row(), 3);
}

TEST_F(MusicSearchDialog, enterPlaysTheHitAndCloses) {
    open();
    QTest::keyClicks(text_, "moon");
    key(Qt::Key_Return);
    EXPECT_EQ(player().state().CurrentTitle, "blue moon");
    EXPECT_EQ(player().stdSS().SelectedIndex, 2);
    EXPECT_FALSE(dialog_->isVisible());
    advance(100);
    EXPECT_FALSE(player().search().jump2File.isOpen());
    open();
    EXPECT_EQ(text_->text(), "");
}

TEST_F(MusicSearchDialog, aDoubleClickOnAHitDoesSo) {
    open();
    list_->setCurrentIndex(list_->model()->index(2, 0));
    emit list_->doubleClicked(list_->currentIndex());
    EXPECT_EQ(player().state().CurrentTitle, "Red");
}

TEST_F(MusicSearchDialog, escapeAndTheButtonClose) {
    open();
    key(Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_FALSE(player().search().jump2File.isOpen());
    open();
    dialog_->findChild<QPushButton*>("Command1")->click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_FALSE(player().search().jump2File.isOpen());
    EXPECT_FALSE(player().state().IsPlaying);
}

TEST_F(MusicSearchDialog, openedOnceMoreItStaysAsItIs) {
    open();
    QTest::keyClicks(text_, "Blue");
    check("Check1_1").click();
    open();
    EXPECT_EQ(text_->text(), "Blue");
    EXPECT_TRUE(check("Check1_1").isChecked());
    EXPECT_EQ(hits(), QStringList({"Blue"}));
}

TEST_F(MusicSearchDialog, followsTheList) {
    open();
    player().stdSS().Clear();
    advance(250);
    EXPECT_TRUE(hits().isEmpty());
    player().stdSS().AddItem("", "/n", "new", "", 0);
    advance(250);
    EXPECT_EQ(hits(), QStringList({"new"}));
}

TEST_F(MusicSearchDialog, staysOnTopWhereThePlayerDoes) {
    set("ASOT", "1");
    open();
    EXPECT_TRUE(dialog_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(MusicSearchDialog, isTheSearchOfTheCommandAndOfWhatIsTypedElsewhere) {
    open();
    player().search().searchFor("gre");
    EXPECT_EQ(windows_.opened.back(), window::WindowId::musicSearch);
    EXPECT_EQ(text_->text(), "gre");
    EXPECT_EQ(text_->cursorPosition(), 3);
    EXPECT_FALSE(text_->hasSelectedText());
    EXPECT_EQ(hits(), QStringList({"Green"}));
}

TEST_F(MusicSearchDialog, aMissingSettingIsReportedAndLeavesItOpen) {
    takeOut("EM");
    open();
    EXPECT_TRUE(dialog_->isVisible());
    ASSERT_THAT(host_.errors, testing::SizeIs(1));
    EXPECT_EQ(host_.errors[0].number(), 94);
    QTest::keyClicks(text_, "red");
    EXPECT_EQ(hits(), QStringList({"Red"}));
}

} // namespace
} // namespace tovik::test
