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
    TitleWindow popup_{bus_, [] { return QGuiApplication::primaryScreen(); }};
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

} // namespace
} // namespace tovik::tray
