// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the whole player's window.
#include "app/MainWindowRig.h"
#include "dialogs/DialogOpener.h"
#include "ui/qt/WindowRig.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <set>

namespace tovik::test {
namespace {

using window::MainElement;

class MainControlsTest : public MainWindowRig {
protected:
    [[nodiscard]] std::vector<std::string> visibleControls() {
        std::vector<std::string> names;
        for (const char* name :
             {"List1", "stdSS", "lstTracks", "RadioLst", "musicSearchTxt", "cmbCDDrives"}) {
            if (control<QWidget>(name).isVisible()) {
                names.emplace_back(name);
            }
        }
        return names;
    }
};

TEST_F(MainControlsTest, eachPanelShowsItsOwn) {
    using testing::ElementsAre;
    EXPECT_THAT(visibleControls(), ElementsAre("List1"));
    switchTo("00100");
    EXPECT_THAT(visibleControls(), ElementsAre("stdSS", "musicSearchTxt"));
    EXPECT_EQ(control<QWidget>("stdSS").geometry(), QRect(20, 45, 432, 190));
    switchTo("00010");
    EXPECT_THAT(visibleControls(), ElementsAre("lstTracks", "cmbCDDrives"));
    switchTo("01000");
    EXPECT_THAT(visibleControls(), testing::IsEmpty());
}

TEST_F(MainControlsTest, theWheelIsTheVolumeButNotOverListsAndBoxes) {
    sound_.drives = {{.description = "One", .toc = FakeDiscs::discOf({10})}};
    real_->music().playback.volume.change_volume(50, 0);
    // As it comes from the window system: to the widget, and to those it lies on if it does not
    // take it.
    const auto turnOver = [](QWidget& widget) {
        const QPointF middle = QRectF(widget.rect()).center();
        QWheelEvent turn(middle, widget.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &turn);
    };
    // None of the lists has anything to scroll.
    for (const auto& [mask, name] :
         {std::pair("10000", "List1"), std::pair("00100", "stdSS"), std::pair("00010", "lstTracks"),
          std::pair("00010", "cmbCDDrives"), std::pair("00001", "RadioLst")}) {
        switchTo(mask);
        tick();
        auto& over = control<QWidget>(name);
        ASSERT_TRUE(over.isVisible()) << name;
        auto* const area = qobject_cast<QAbstractScrollArea*>(&over);
        turnOver(area != nullptr ? *area->viewport() : over);
        EXPECT_EQ(real_->state().CurrentVolume, 50) << name;
    }
    turnOver(shown_->widget());
    EXPECT_EQ(real_->state().CurrentVolume, 55);
}

TEST_F(MainControlsTest, theBoxOfDrivesShowsThemAndChoosesOne) {
    sound_.drives = {{.description = "One", .toc = FakeDiscs::discOf({10})},
                     {.description = "Two", .letter = 4, .toc = FakeDiscs::discOf({20, 30})}};
    switchTo("00010");
    tick();
    auto& box = control<QComboBox>("cmbCDDrives");
    ASSERT_EQ(box.count(), 2);
    EXPECT_EQ(box.itemText(1), "E: Two");
    EXPECT_EQ(box.currentIndex(), 0);
    EXPECT_EQ(real_->lists().lstTracks.ListCount(), 1);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(real_->discs().state.CDDrive, 1);
    EXPECT_EQ(real_->lists().lstTracks.ListCount(), 2);
}

TEST_F(MainControlsTest, theStationsLeaveWithTheNextTickAfterTheirPanel) {
    using testing::ElementsAre;
    switchTo("00001");
    tick();
    EXPECT_THAT(visibleControls(), ElementsAre("RadioLst"));
    switchTo("00100");
    EXPECT_THAT(visibleControls(), ElementsAre("stdSS", "RadioLst", "musicSearchTxt"));
    tick();
    EXPECT_THAT(visibleControls(), ElementsAre("stdSS", "musicSearchTxt"));
}

TEST_F(MainControlsTest, whatIsTypedIntoTheSearchFieldGoesToTheSearch) {
    dialogs::DialogOpener opener(host_.dispatcher);
    windows_.next = &opener;
    opener.attach(real_->dialogs(), shown_->widget());
    switchTo("00100");
    auto& field = control<QLineEdit>("musicSearchTxt");
    QTest::mouseClick(&field, Qt::LeftButton);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Left, Qt::Key_Backspace}) {
        QTest::keyClick(&field, key);
        EXPECT_TRUE(windows_.opened.empty());
    }
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_B);
    ASSERT_EQ(windows_.opened, std::vector{window::WindowId::musicSearch});
    auto& text = control<QLineEdit>("SearchString");
    EXPECT_EQ(text.text(), "b");
    EXPECT_EQ(text.cursorPosition(), 1);
    QTest::keyClick(&field, Qt::Key_Period); // typed on before the search has the keyboard
    EXPECT_EQ(text.text(), "b.");
    EXPECT_EQ(real_->search().jump2File.List1(), std::vector<playlist::Row>{2});
    windows_.next = nullptr;
}

TEST_F(MainControlsTest, aDoubleClickOnARowPlaysIt) {
    switchTo("00100");
    auto& list = control<ui::ListWidget>("stdSS");
    const QPoint second(40, list.rowHeight() + list.rowHeight() / 2);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_FALSE(real_->state().IsPlaying);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_TRUE(real_->state().IsPlaying);
    EXPECT_EQ(real_->state().CurrentTitle, "b.mp3");
}

TEST_F(MainControlsTest, bothListsPaintNoMoreThanTheRowsThatChanged) {
    auto& quick = control<ui::ListWidget>("List1");
    ui::test::PaintWatch seen(*quick.viewport());
    const auto settled = [&] {
        settle();
        return seen.take();
    };
    static_cast<void>(settled());
    const int pitch = quick.rowHeight();
    const int width = quick.viewport()->width();
    real_->stdSS().RefreshTitle(2, "x");
    EXPECT_EQ(settled(), QRegion(0, pitch, width, pitch));
    real_->List1().ListIndex(2);
    EXPECT_EQ(settled(), QRegion(0, pitch, width, 3 * pitch));
    real_->stdSS().MoveRow(1, 4);
    EXPECT_EQ(settled(), QRegion(0, 0, width, 4 * pitch)) << "it shows what the other list does";
    real_->stdSS().Remove(3);
    EXPECT_EQ(settled(), QRegion(0, pitch, width, quick.viewport()->height() - pitch));
}

TEST_F(MainControlsTest, rowsAreReorderedByMouseAndByKeys) {
    switchTo("00100");
    auto& list = control<ui::ListWidget>("stdSS");
    const auto middleOf = [&](int row) {
        return QPoint(40, row * list.rowHeight() + list.rowHeight() / 2);
    };
    const auto titles = [&] {
        std::string all;
        for (playlist::Row row = 1; row <= real_->stdSS().ListCount(); ++row) {
            all += real_->stdSS().text(row, playlist::RowText::Title).front();
        }
        return all;
    };
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, middleOf(2));
    QMouseEvent move(QEvent::MouseMove, middleOf(0),
                     list.viewport()->mapToGlobal(QPointF(middleOf(0))), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(list.viewport(), &move);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middleOf(0));
    EXPECT_EQ(titles(), "cab");
    QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(titles(), "acb");
    QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(titles(), "abc");
    EXPECT_EQ(real_->stdSS().SelectedIndex, 3);
}

TEST_F(MainControlsTest, deleteTakesABlockThatShiftAndTheArrowsMarked) {
    switchTo("00100");
    auto& list = control<ui::ListWidget>("stdSS");
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list, Qt::Key_Delete);
    ASSERT_EQ(real_->stdSS().ListCount(), 1);
    EXPECT_EQ(real_->stdSS().text(1, playlist::RowText::Title), "a.mp3");
    EXPECT_EQ(real_->List1().ListCount(), 1);
}

TEST_F(MainControlsTest, emptyListsSayWhatToDoInTheLanguage) {
    const auto hintOf = [this](const char* name) {
        return control<ui::ListWidget>(name).hint().toStdString();
    };
    const std::string drop = "Drop files here, or press a button to add some";
    EXPECT_EQ(hintOf("List1"), drop);
    switchTo("00100");
    EXPECT_EQ(hintOf("stdSS"), drop);
    switchTo("00010");
    EXPECT_EQ(hintOf("lstTracks"), "Put in a disc and choose its drive");
    switchTo("00001");
    tick();
    EXPECT_EQ(hintOf("RadioLst"), "Press a button to add a station");
}

TEST_F(MainControlsTest, theHolderOfTheFocusLetsKeysGoOnToTheWindow) {
    auto& search = control<QLineEdit>("musicSearchTxt");
    switchTo("00100");
    search.setFocus();
    EXPECT_EQ(shown_->widget().focusWidget(), &search);
    shown_->takeFocus();
    auto& holder = control<QWidget>("Text4");
    EXPECT_EQ(shown_->widget().focusWidget(), &holder);
    QTest::keyClick(&holder, Qt::Key_2);
    EXPECT_EQ(real_->state().CurrentPanel, 2);
}

TEST_F(MainControlsTest, theSearchFieldHoldsItsPromptAndWhatIsTyped) {
    switchTo("00100");
    auto& search = control<QLineEdit>("musicSearchTxt");
    EXPECT_EQ(search.text(), QStringLiteral("Search"));
    QTest::mouseClick(&search, Qt::LeftButton);
    EXPECT_EQ(search.selectedText(), QStringLiteral("Search"));
    QTest::keyClicks(&search, QStringLiteral("ab2"));
    settle();
    EXPECT_EQ(search.text(), QStringLiteral("ab2"));
    EXPECT_EQ(real_->elements().get(MainElement::musicSearchTxt).caption, "ab2");
    EXPECT_EQ(real_->state().CurrentPanel, 3) << "what is typed is no shortcut";
}

TEST_F(MainControlsTest, tabReachesEveryControlOfEachPanelAndComesRound) {
    QApplication::setActiveWindow(&shown_->widget());
    for (const char* mask : {"10000", "01000", "00100", "00010", "00001"}) {
        switchTo(mask);
        tick();
        std::set<std::string> widgets;
        for (int step = 0; step < 40; ++step) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            widgets.insert(QApplication::focusWidget()->objectName().toStdString());
        }
        widgets.erase("");
        const std::vector<std::string> visible = visibleControls();
        EXPECT_EQ(widgets, std::set<std::string>(visible.begin(), visible.end())) << mask;
    }
}

TEST_F(MainControlsTest, tabLeavesTheSearchFieldForTheNextControlAndEscapeForTheHolder) {
    QApplication::setActiveWindow(&shown_->widget());
    auto& search = control<QLineEdit>("musicSearchTxt");
    auto& holder = control<QWidget>("Text4");
    switchTo("00100");
    search.setFocus();
    QTest::keyClick(&search, Qt::Key_Tab);
    settle();
    EXPECT_EQ(QApplication::focusWidget(), &shown_->widget());
    QTest::keyClick(&shown_->widget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &search);
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &holder);
    search.setFocus();
    QTest::mouseClick(control<ui::ListWidget>("stdSS").viewport(), Qt::LeftButton, {}, {9, 9});
    settle();
    EXPECT_EQ(QApplication::focusWidget(), &holder);
}

TEST_F(MainControlsTest, theKeyboardMapWorksWhateverHasTheFocusButAField) {
    QApplication::setActiveWindow(&shown_->widget());
    switchTo("00100");
    control<ui::ListWidget>("stdSS").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_2);
    EXPECT_EQ(real_->state().CurrentPanel, 2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_4);
    EXPECT_EQ(real_->state().CurrentPanel, 4);
    settle();
    control<QComboBox>("cmbCDDrives").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_3);
    EXPECT_EQ(real_->state().CurrentPanel, 4);
}

TEST_F(MainControlsTest, stayingOnTopDoesNotTakeTheWindowOffTheScreen) {
    class HideWatch final : public QObject {
    public:
        int hidden = 0;

        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            hidden += event->type() == QEvent::Hide ? 1 : 0;
            return false;
        }
    } watch;

    QWidget& window = shown_->widget();
    window.installEventFilter(&watch);
    for (const bool topmost : {true, false}) {
        shown_->setTopmost(topmost);
        EXPECT_EQ(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint), topmost);
        EXPECT_EQ(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), topmost);
    }
    shown_->setTaskbarButton(window.windowType() != Qt::Tool);
    EXPECT_EQ(watch.hidden, 0);
    shown_->setTaskbarButton(false);
    shown_->setTaskbarButton(true);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MainControlsTest, filesDroppedOnEitherListAreAdded) {
    switchTo("00100");
    playlist::Row rows = real_->stdSS().ListCount();
    for (const auto& [mask, name] : {std::pair("00100", "stdSS"), std::pair("10000", "List1")}) {
        switchTo(mask);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/m/d.mp3"), QUrl::fromLocalFile("/m/no.txt")});
        QWidget* const area = control<ui::ListWidget>(name).viewport();
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &drop);
        settle();
        ASSERT_EQ(real_->stdSS().ListCount(), ++rows) << name;
        EXPECT_EQ(real_->stdSS().text(rows, playlist::RowText::Title), "d.mp3");
    }
}

} // namespace
} // namespace tovik::test
