// SPDX-License-Identifier: GPL-3.0-or-later
// The jumps to a row and to a time on the screen.
#include "app/AppRig.h"
#include "dialogs/DialogOpener.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tovik::test {
namespace {

using window::WindowId;

class JumpDialogs : public AppRig {
protected:
    JumpDialogs() {
        start();
        for (const char* name : {"one", "two", "three"}) {
            player().stdSS().AddItem("", track(name, {.seconds = 200}), name, "03:20", 200);
        }
        opener_.attach(player().dialogs(), parent_);
    }

    void open(WindowId window, const char* name) {
        opener_.open(window);
        dialog_ = parent_.findChild<QDialog*>(name);
        ASSERT_NE(dialog_, nullptr);
        text_ = dialog_->findChild<QLineEdit*>("Text1");
        EXPECT_FALSE(dialog_->isModal());
    }

    [[nodiscard]] QString label(const char* name) const {
        return dialog_->findChild<QLabel*>(name)->text();
    }

    [[nodiscard]] QPushButton& button(const char* name) const {
        return *dialog_->findChild<QPushButton*>(name);
    }

    [[nodiscard]] std::int32_t second() {
        return player().music().playback.time.GetPlayingPos(player().state().active());
    }

    dialogs::DialogOpener opener_{host_.dispatcher};
    QWidget parent_;
    QDialog* dialog_ = nullptr;
    QLineEdit* text_ = nullptr;
};

class JumpToTrack : public JumpDialogs {
protected:
    void open() { JumpDialogs::open(WindowId::jumpToTrack, "frmJump2Track"); }
};

TEST_F(JumpToTrack, tellsOfListAndTrackInTheWordsOfTheLanguage) {
    player().music().playback.rows.playItem(1);
    open();
    EXPECT_EQ(dialog_->windowTitle(), "Jump to track");
    EXPECT_EQ(label("Label1_0"), "Playlist");
    EXPECT_EQ(label("Label1_1"), "Tracks in the list: 3");
    EXPECT_EQ(label("Label1_2"), "Now playing: two");
    EXPECT_EQ(label("Label1_3"), "Track number:");
    EXPECT_EQ(label("Label1_4"), "Title:");
    EXPECT_EQ(label("Label1_5"), "");
    player().changeLanguage();
    EXPECT_EQ(label("Label1_1"), "Tracks in the list: 3");
}

TEST_F(JumpToTrack, aRowsNumberShowsItsTitleAndLeadsThere) {
    open();
    EXPECT_FALSE(button("Command1_0").isEnabled());
    QTest::keyClicks(text_, "3");
    EXPECT_EQ(label("Label1_5"), "three");
    EXPECT_TRUE(button("Command1_0").isEnabled());
    button("Command1_0").click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(player().state().CurrentTitle, "three");
    EXPECT_EQ(player().List1().ListIndex(), 2);
}

TEST_F(JumpToTrack, enterLeadsThereAndClosesInAnyCase) {
    open();
    QTest::keyClicks(text_, "2");
    QTest::keyClick(text_, Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(player().state().CurrentTitle, "two");
    open();
    EXPECT_EQ(text_->text(), "");
    QTest::keyClicks(text_, "4");
    EXPECT_FALSE(button("Command1_0").isEnabled());
    QTest::keyClick(text_, Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(player().state().CurrentTitle, "two");
}

TEST_F(JumpToTrack, escapeAndTheButtonOnlyClose) {
    open();
    QTest::keyClicks(text_, "1");
    QTest::keyClick(text_, Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
    open();
    QTest::keyClicks(text_, "1");
    button("Command1_1").click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_FALSE(player().state().IsPlaying);
}

class JumpToTime : public JumpDialogs {
protected:
    JumpToTime() { player().music().playback.rows.playItem(0); }

    void open() { JumpDialogs::open(WindowId::jumpToTime, "frmjump2time"); }

    void type(const char* text) {
        text_->selectAll();
        QTest::keyClicks(text_, text);
    }
};

TEST_F(JumpToTime, showsLengthAndPlaceEachTime) {
    player().music().playback.time.SetPlayingPos(player().state().active(), 65, false);
    open();
    EXPECT_EQ(dialog_->windowTitle(), "Jump to time");
    EXPECT_EQ(label("Label1"), "Duration");
    EXPECT_EQ(label("Label2"), "Jump to");
    EXPECT_EQ(label("lbldur"), "03:20");
    EXPECT_EQ(text_->text(), "01:05");
    EXPECT_EQ(text_->selectedText(), "01:05");
    dialog_->reject();
    player().music().playback.time.SetPlayingPos(player().state().active(), 5, false);
    open();
    EXPECT_EQ(text_->text(), "00:05");
}

TEST_F(JumpToTime, goesToTheTimeAndCloses) {
    open();
    type("1:30");
    button("Command1").click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(second(), 90);
    open();
    type("0:2:05");
    QTest::keyClick(text_, Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(second(), 125);
}

TEST_F(JumpToTime, whatIsNoTimeLeavesItOpen) {
    open();
    type("soon");
    button("Command1").click();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(text_->selectedText(), "soon");
    EXPECT_EQ(second(), 0);
}

TEST_F(JumpToTime, escapeAndTheButtonOnlyClose) {
    open();
    QTest::keyClick(text_, Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
    open();
    type("1:00");
    button("Command2").click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(second(), 0);
}

TEST_F(JumpDialogs, theCommandsOpenThem) {
    using commands::CommandId;
    const auto opens = [this](CommandId command) {
        EXPECT_TRUE(player().commands().run(command));
        return windows_.opened.back();
    };
    EXPECT_EQ(opens(CommandId::jumpToTrack), WindowId::jumpToTrack);
    EXPECT_EQ(opens(CommandId::jumpToTime), WindowId::jumpToTime);
    EXPECT_EQ(opens(CommandId::musicSearch), WindowId::musicSearch);
}

} // namespace
} // namespace tovik::test
