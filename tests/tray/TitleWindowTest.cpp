// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TitleWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

namespace tovik::tray {
namespace {

class TitleWindowTest : public testing::Test {
protected:
    static QWidget* bar() {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->windowRole() == QStringLiteral("title")) {
                return widget;
            }
        }
        return nullptr;
    }

    SessionBus bus_;
    QRect icon_;
    TitleWindow popup_{bus_, [] { return QGuiApplication::primaryScreen(); },
                       [this] { return icon_; }};
};

TEST_F(TitleWindowTest, liesAcrossTheTopOfTheScreen) {
    popup_.show({.text = "a song"});
    ASSERT_NE(bar(), nullptr);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(bar()->geometry(), QRect(screen.left(), screen.top(), screen.width(), 37));
    EXPECT_NEAR(bar()->windowOpacity(), 76 / 255.0, 0.003);
    EXPECT_TRUE(bar()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(bar()->windowFlags().testFlag(Qt::WindowTransparentForInput));
    EXPECT_TRUE(bar()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_EQ(bar()->accessibleName(), QStringLiteral("a song"));
}

TEST_F(TitleWindowTest, otherWordsComeOnTheSameBar) {
    popup_.show({.text = "one"});
    const QWidget* const first = bar();
    popup_.show({.text = "two"});
    EXPECT_EQ(bar(), first);
    EXPECT_EQ(bar()->accessibleName(), QStringLiteral("two"));
    popup_.hide();
    EXPECT_EQ(bar(), nullptr);
    popup_.hide();
}

TEST_F(TitleWindowTest, aNotificationTakesThePlaceOfTheBar) {
    popup_.show({.text = "one"});
    ASSERT_NE(bar(), nullptr);
    popup_.show({.text = "two", .asNotification = true});
    EXPECT_EQ(bar(), nullptr);
    popup_.show({.text = "three"});
    EXPECT_NE(bar(), nullptr);
}

TEST_F(TitleWindowTest, aKeyMayEndIt) {
    std::vector<int> keys;
    popup_.setKey([&](int code) {
        keys.push_back(code);
        popup_.hide();
    });
    popup_.show({.text = "one"});
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(bar(), &escape);
    EXPECT_EQ(keys, std::vector<int>{27});
    EXPECT_EQ(bar(), nullptr);
}

TEST_F(TitleWindowTest, aSmallOneIsNoWiderThanItsWordsAndStandsInACorner) {
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    popup_.show({.text = "a song", .small = true, .heightTwips = 480, .opacityPercent = 90});
    ASSERT_NE(bar(), nullptr);
    EXPECT_EQ(bar()->height(), 32);
    EXPECT_GT(bar()->width(), 20);
    EXPECT_LT(bar()->width(), 200);
    EXPECT_EQ(room.right() - bar()->geometry().right(), 8);
    EXPECT_EQ(room.bottom() - bar()->geometry().bottom(), 8);
    EXPECT_GT(bar()->windowOpacity(), 0.85);
    // A long one has an end; an icon at the top has it come up there.
    icon_ = QRect(room.right() - 100, room.top() + 2, 20, 20);
    popup_.show({.text = std::string(500, 'W'), .small = true, .heightTwips = 480});
    EXPECT_EQ(bar()->width(), 420);
    EXPECT_EQ(bar()->geometry().top() - room.top(), 8);
    EXPECT_EQ(room.right() - bar()->geometry().right(), 8);
    popup_.show({.text = "across the screen"});
    EXPECT_EQ(bar()->width(), QGuiApplication::primaryScreen()->geometry().width());
}

TEST_F(TitleWindowTest, theCornerIsThatOfTheTray) {
    const QRect screen(1000, 0, 800, 600);
    const QSize popup(100, 30);
    const QRect whole = screen;
    EXPECT_EQ(cornerFor(popup, screen, whole, {}).bottomRight(), QPoint(1791, 591));
    const QRect belowPanel(1000, 40, 800, 560);
    EXPECT_EQ(cornerFor(popup, screen, belowPanel, {}).topRight(), QPoint(1791, 48));
    EXPECT_EQ(cornerFor(popup, screen, whole, {1010, 580, 16, 16}).bottomLeft(), QPoint(1008, 591));
    EXPECT_EQ(cornerFor(popup, screen, whole, {1500, 3, 16, 16}).topRight(), QPoint(1791, 8));
    // An icon on another screen says nothing about this one.
    EXPECT_EQ(cornerFor(popup, screen, whole, {10, 3, 16, 16}).bottomRight(), QPoint(1791, 591));
}

} // namespace
} // namespace tovik::tray
