// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowRig.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWindow>

namespace tovik::ui {
namespace {

using test::Small;
using testing::ElementsAre;
using testing::IsEmpty;

class SkinWindowTest : public testing::Test, protected test::WindowRig {
protected:
    void SetUp() override { ASSERT_TRUE(show()); }
};

TEST_F(SkinWindowTest, theRearmostElementGivesTheSize) {
    EXPECT_EQ(window.size(), QSize(200, 100));
    window.setScale(1.5);
    EXPECT_EQ(window.size(), QSize(300, 150));
    window.setScale(1);
    table.touch(Small::ground).width = 250;
    settle();
    EXPECT_EQ(window.size(), QSize(250, 100));
}

TEST_F(SkinWindowTest, theMouseSpeaksInElements) {
    moveMouse({44, 43});
    notes.lines.clear();
    QTest::mousePress(&window, Qt::LeftButton, Qt::ControlModifier, QPoint(45, 45));
    EXPECT_EQ(notes.events.back().button, MouseButton::Left);
    EXPECT_TRUE(notes.events.back().leftHeld);
    EXPECT_TRUE(notes.events.back().modifiers.control);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(46, 45));
    EXPECT_FALSE(notes.events.back().leftHeld);
    EXPECT_THAT(notes.lines, ElementsAre("down up(0) 5,5", "up up(0) 6,5"));
}

TEST_F(SkinWindowTest, placesAreSkinPixelsAtAnyScale) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        window.setScale(scale);
        notes.events.clear();
        const QPointF place(45 * scale, 45 * scale);
        QTest::mousePress(&window, Qt::LeftButton, {}, place.toPoint());
        QTest::mouseRelease(&window, Qt::LeftButton, {}, place.toPoint());
        ASSERT_EQ(notes.events.size(), 2U);
        EXPECT_TRUE(notes.events.front().over(Small::up)) << scale;
        EXPECT_NEAR(notes.events.front().x, 5, 0.5) << scale;
        EXPECT_NEAR(notes.events.front().windowY, 45, 0.5) << scale;
    }
}

TEST_F(SkinWindowTest, aPressTellsWhereTheWindowIsWhenTheWindowManagerHasNotYet) {
    const Box box{10, 20, 30, 5};
    const QPoint told = window.onScreen(box).topLeft();
    EXPECT_EQ(told, window.mapToGlobal(QPoint(10, 20)));
    const QPointF place(45, 45);
    for (const QPoint off : {QPoint(100, 70), QPoint()}) {
        QMouseEvent press(QEvent::MouseButtonPress, place, window.mapToGlobal(place) + off,
                          Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &press);
        EXPECT_EQ(window.onScreen(box).topLeft(), told + off);
        QTest::mouseRelease(&window, Qt::LeftButton, {}, place.toPoint());
    }
}

TEST_F(SkinWindowTest, aDoubleClickAndTheWheel) {
    QTest::mouseDClick(&window, Qt::LeftButton, {}, QPoint(12, 12));
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(12, 12));
    EXPECT_THAT(notes.lines, ElementsAre("down title(0) 2,2", "double title(0) 2,2",
                                         "up title(0) 2,2", "enter title(0)"));
    notes.lines.clear();
    QWheelEvent wheel(QPointF(31, 71), window.mapToGlobal(QPointF(31, 71)), {}, QPoint(0, 60), {},
                      {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window, &wheel);
    EXPECT_THAT(notes.lines, ElementsAre("wheel lamp(1) 0.5,1 by 0.5"));
}

TEST_F(SkinWindowTest, leavingTheWindowLeavesTheElement) {
    moveMouse({45, 45});
    EXPECT_THAT(notes.lines, ElementsAre("enter up(0)", "move up(0) 5,5"));
    notes.lines.clear();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&window, &leave);
    EXPECT_THAT(notes.lines, ElementsAre("leave up(0)"));
}

TEST_F(SkinWindowTest, keysGoToTheLogicAndUnusedOnesOn) {
    QKeyEvent used(QEvent::KeyPress, Qt::Key_X, Qt::AltModifier);
    QApplication::sendEvent(&window, &used);
    EXPECT_TRUE(used.isAccepted());
    ASSERT_EQ(notes.keys.size(), 1U);
    EXPECT_EQ(notes.keys[0].code, 'X');
    EXPECT_TRUE(notes.keys[0].modifiers.alt);
    notes.usesKeys = false;
    QKeyEvent unused(QEvent::KeyPress, Qt::Key_X, {});
    QApplication::sendEvent(&window, &unused);
    EXPECT_FALSE(unused.isAccepted());
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_EQ(notes.keys.back().code, 9);
}

TEST_F(SkinWindowTest, theLogicDecidesWhetherTheWindowCloses) {
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(notes.lines, ElementsAre("close"));
}

TEST_F(SkinWindowTest, anErrorOfTheLogicIsReportedAndTheWindowLivesOn) {
    int reported = 0;
    dispatcher.reportTo([&](const base::RuntimeError& error) { reported = error.number(); });
    notes.onMouseDown = [] { throw base::RuntimeError(base::ErrorNumber::TypeMismatch); };
    QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(45, 45));
    EXPECT_EQ(reported, 13);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(45, 45));
    EXPECT_TRUE(notes.events.back().over(Small::up));
}

TEST_F(SkinWindowTest, theCaptionIsShownAsItStands) {
    window.setCaption("M\xF6gen [*] <b>");
    EXPECT_EQ(window.windowHandle()->title(), QString::fromUtf8("Mögen [*] <b>"));
}

TEST_F(SkinWindowTest, tooltipsArePlainWords) {
    table.touch(Small::up).tooltip = "<b>Play</b>";
    QHelpEvent help(QEvent::ToolTip, QPoint(45, 45), window.mapToGlobal(QPoint(45, 45)));
    QApplication::sendEvent(&window, &help);
    EXPECT_EQ(QToolTip::text(), "&lt;b&gt;Play&lt;/b&gt;");
    QToolTip::hideText();
}

TEST_F(SkinWindowTest, aControlFollowsItsRecord) {
    QWidget control;
    window.hostControl(Small::list, 0, &control);
    EXPECT_EQ(control.parentWidget(), &window);
    EXPECT_TRUE(control.isVisible());
    EXPECT_EQ(control.geometry(), QRect(120, 10, 60, 40));
    EXPECT_EQ(control.palette().color(QPalette::Text), QColor(1, 2, 3));
    EXPECT_EQ(control.palette().color(QPalette::Base), QColor(4, 5, 6));
    table.touch(Small::list).top = 30;
    table.touch(Small::list).height = 60;
    table.touch(Small::list).enabled = false;
    settle();
    EXPECT_EQ(control.geometry(), QRect(120, 30, 60, 60));
    EXPECT_FALSE(control.isEnabled());
    table.touch(Small::list).visible = false;
    settle();
    EXPECT_FALSE(control.isVisible());
    table.touch(Small::list).left = 100;
    settle();
    table.touch(Small::list).visible = true;
    settle();
    EXPECT_TRUE(control.isVisible());
    EXPECT_EQ(control.x(), 100);
    window.setScale(2);
    EXPECT_EQ(control.geometry(), QRect(200, 60, 120, 120));
    control.setParent(nullptr);
}

TEST_F(SkinWindowTest, whatStandsInFrontOfAControlIsCutOutOfIt) {
    QWidget control;
    window.hostControl(Small::list, 0, &control);
    EXPECT_TRUE(control.mask().isEmpty());
    // The button comes to lie over the list's lower left corner, at 30, 30 in it.
    table.touch(Small::list).left = 30;
    settle();
    EXPECT_FALSE(control.mask().contains(QPoint(10, 30)));
    EXPECT_TRUE(control.mask().contains(QPoint(9, 30)));
    EXPECT_TRUE(control.mask().contains(QPoint(10, 29)));
    EXPECT_EQ(window.childAt(45, 45), nullptr);
    table.touch(Small::up).visible = false;
    settle();
    EXPECT_TRUE(control.mask().isEmpty());
    EXPECT_EQ(window.childAt(45, 45), &control);
    // What stands behind it does not count.
    table.touch(Small::title).left = 30;
    settle();
    EXPECT_TRUE(control.mask().isEmpty());
    control.setParent(nullptr);
}

TEST_F(SkinWindowTest, whatTakesNoMouseIsShownOverAControlThatKeepsTheMouse) {
    for (const double scale : {1.0, 1.5}) {
        SCOPED_TRACE(scale);
        window.setScale(scale);
        QWidget control;
        control.setAutoFillBackground(true);
        control.setPalette(QPalette(Qt::white));
        Element& button = table.touch(Small::up);
        button.visible = true;
        button.takesMouse = false;
        PixelImage lamp{30, 20, std::vector<std::uint32_t>(600, 0xFFFF0000)};
        std::fill_n(lamp.pixels.begin(), 300, 0U); // the upper half has no colour
        button.picture = pictures.add(lamp);
        table.touch(Small::list).left = 30;
        table.touch(Small::list).top = 30;
        window.hostControl(Small::list, 0, &control);
        window.show();
        settle();
        EXPECT_TRUE(control.mask().isEmpty());
        const auto at = [scale](int x, int y) { return QPoint(x, y) * scale; };
        EXPECT_EQ(window.childAt(at(55, 55)), &control);
        const QImage shown = window.grab().toImage();
        EXPECT_EQ(shown.pixelColor(at(55, 56)), QColor(Qt::red));
        EXPECT_EQ(shown.pixelColor(at(55, 44)), control.palette().color(QPalette::Window));
        table.touch(Small::up).visible = false;
        settle();
        EXPECT_EQ(window.grab().toImage().pixelColor(at(55, 56)),
                  control.palette().color(QPalette::Window));
        control.setParent(nullptr);
    }
}

TEST_F(SkinWindowTest, whatIsShownOverAControlHasThePixelsThatItHasBesideOne) {
    QWidget control;
    PixelImage lamp{30, 20, {}};
    for (std::uint32_t pixel = 0; pixel < 600; ++pixel) {
        lamp.pixels.push_back(0xFF000000U | pixel * 0x1357U % 0xFFFFFFU);
    }
    Element& button = table.touch(Small::up);
    button.takesMouse = false;
    button.picture = pictures.add(lamp);
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        window.setScale(scale);
        const QRect inside(QPoint(qRound(42 * scale), qRound(42 * scale)),
                           QPoint(qRound(68 * scale), qRound(58 * scale)));
        Element& list = table.touch(Small::list);
        list.left = 120;
        list.top = 10;
        window.hostControl(Small::list, 0, &control);
        window.show();
        settle();
        const QImage beside = window.grab(inside).toImage();
        table.touch(Small::list).left = 30;
        table.touch(Small::list).top = 30;
        settle();
        ASSERT_TRUE(control.geometry().contains(inside));
        EXPECT_EQ(window.grab(inside).toImage(), beside);
        EXPECT_NE(beside.pixelColor(0, 0), beside.pixelColor(beside.rect().bottomRight()));
        control.setParent(nullptr);
    }
}

TEST_F(SkinWindowTest, aDisabledElementKeepsItsTooltipAndTheMouse) {
    table.touch(Small::up).enabled = false;
    table.touch(Small::up).tooltip = "later";
    ASSERT_TRUE(show());
    QHelpEvent help(QEvent::ToolTip, QPoint(45, 45), window.mapToGlobal(QPoint(45, 45)));
    QCoreApplication::sendEvent(&window, &help);
    EXPECT_EQ(QToolTip::text(), "later");
    QToolTip::hideText();
}

TEST_F(SkinWindowTest, thePointerOverAControlIsOverItsElement) {
    QWidget control;
    window.hostControl(Small::list, 0, &control);
    moveMouse({45, 45});
    notes.lines.clear();
    QEnterEvent enter(QPointF(1, 1), QPointF(121, 11), window.mapToGlobal(QPointF(121, 11)));
    QApplication::sendEvent(&control, &enter);
    EXPECT_THAT(notes.lines, ElementsAre("leave up(0)", "enter list(0)"));
    control.setParent(nullptr);
}

TEST_F(SkinWindowTest, aControlThatWasDeletedIsForgotten) {
    const QObjectList before = window.children();
    auto control = std::make_unique<QWidget>();
    window.hostControl(Small::list, 0, control.get());
    control.reset();
    table.touch(Small::list).left = 1;
    settle();
    EXPECT_EQ(window.children(), before);
}

} // namespace
} // namespace tovik::ui
