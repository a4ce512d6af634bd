// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/NotifierItem.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <string>
#include <vector>

namespace tovik::tray {
namespace {

TEST(NotifierTypes, pixelsTravelAsAlphaRedGreenBlue) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(1, 2, 3, 255));
    image.setPixel(1, 0, qRgba(250, 0, 7, 128));
    const NotifierPixmap pixmap = notifierPixmap(image);
    EXPECT_EQ(pixmap.width, 2);
    EXPECT_EQ(pixmap.height, 1);
    EXPECT_EQ(pixmap.pixels.toHex(), QByteArray("ff01020380fa0007"));
}

TEST(NotifierItem, turnsAreNotchesHoweverAHostCountsThem) {
    EXPECT_DOUBLE_EQ(notchesOf(120), 1);
    EXPECT_DOUBLE_EQ(notchesOf(-240), -2);
    EXPECT_DOUBLE_EQ(notchesOf(60), 0.5);
    EXPECT_DOUBLE_EQ(notchesOf(1), 1);
    EXPECT_DOUBLE_EQ(notchesOf(-3), -3);
}

class NotifierItemTest : public testing::Test {
protected:
    std::vector<std::string> seen_;
    QObject object_;
    NotifierItem item_{object_,
                       {.left = [this] { seen_.emplace_back("left"); },
                        .leftTwice = [this] { seen_.emplace_back("twice"); },
                        .right = [this] { seen_.emplace_back("right"); },
                        .middle = [this] { seen_.emplace_back("middle"); },
                        .wheel =
                            [this](double notches) {
                                seen_.push_back("wheel " +
                                                std::to_string(static_cast<int>(notches)));
                            }}};
};

TEST_F(NotifierItemTest, whatTheHostAsksForIsAClick) {
    item_.Activate(1, 2);
    item_.ContextMenu(1, 2);
    item_.SecondaryActivate(1, 2);
    item_.Scroll(120, QStringLiteral("Vertical"));
    item_.Scroll(-120, QStringLiteral("vertical"));
    item_.Scroll(120, QStringLiteral("horizontal"));
    EXPECT_EQ(seen_, (std::vector<std::string>{"left", "right", "middle", "wheel 1", "wheel -1"}));
}

TEST_F(NotifierItemTest, onlyWhatChangedIsTold) {
    QSignalSpy tips(&item_, &NotifierItem::NewToolTip);
    QSignalSpy icons(&item_, &NotifierItem::NewIcon);
    item_.setLook({.style = 1, .tooltip = "one"});
    item_.setLook({.style = 1, .tooltip = "one"});
    EXPECT_EQ(tips.count(), 1);
    EXPECT_EQ(icons.count(), 1);
    item_.setLook({.style = 2, .tooltip = "two"});
    EXPECT_EQ(tips.count(), 2);
    EXPECT_EQ(icons.count(), 2);
    EXPECT_EQ(item_.toolTip().title, QStringLiteral("two"));
}

TEST_F(NotifierItemTest, thePlaceOfTheMenuIsGivenOutOnce) {
    item_.ContextMenu(640, 12);
    EXPECT_EQ(item_.takePlace(), (window::ScreenPlace{.left = 640, .top = 12}));
    EXPECT_EQ(item_.takePlace(), std::nullopt);
    // Who knows no place says the corner.
    item_.ContextMenu(0, 0);
    EXPECT_EQ(item_.takePlace(), std::nullopt);
}

TEST_F(NotifierItemTest, aTokenIsGivenOutOnce) {
    item_.ProvideXdgActivationToken(QStringLiteral("seat"));
    EXPECT_EQ(item_.takeToken(), "seat");
    EXPECT_EQ(item_.takeToken(), "");
}

} // namespace
} // namespace tovik::tray
