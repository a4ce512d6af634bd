// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/KeyCodes.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

TEST(KeyCodes, areTheVirtualKeys) {
    EXPECT_EQ(virtualKeyCode(Qt::Key_A, false), 'A');
    EXPECT_EQ(virtualKeyCode(Qt::Key_Z, false), 'Z');
    EXPECT_EQ(virtualKeyCode(Qt::Key_1, false), '1');
    EXPECT_EQ(virtualKeyCode(Qt::Key_1, true), 0x61);
    EXPECT_EQ(virtualKeyCode(Qt::Key_F1, false), 0x70);
    EXPECT_EQ(virtualKeyCode(Qt::Key_F12, false), 0x7B);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Escape, false), 27);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Return, false), 13);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Enter, true), 13);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Left, false), 0x25);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Right, false), 0x27);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Plus, true), 0x6B);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Plus, false), 0xBB);
    EXPECT_EQ(virtualKeyCode(Qt::Key_MediaNext, false), 0xB0);
    EXPECT_EQ(virtualKeyCode(Qt::Key_Odiaeresis, false), 0);
}

TEST(KeyCodes, eventsTellModifiersAndRepetition) {
    const QKeyEvent pressed(QEvent::KeyPress, Qt::Key_J, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(keyEventOf(pressed).code, 'J');
    EXPECT_EQ(keyEventOf(pressed).modifiers, (Modifiers{.control = true, .alt = true}));
    EXPECT_FALSE(keyEventOf(pressed).repeated);
    const QKeyEvent held(QEvent::KeyPress, Qt::Key_3, Qt::KeypadModifier, {}, true);
    EXPECT_EQ(keyEventOf(held).code, 0x63);
    EXPECT_EQ(keyEventOf(held).modifiers, Modifiers{});
    EXPECT_TRUE(keyEventOf(held).repeated);
}

TEST(KeyCodes, whatIsPressedWithTheKeyOfTheDesktopIsNone) {
    const QKeyEvent pressed(QEvent::KeyPress, Qt::Key_V, Qt::MetaModifier);
    EXPECT_EQ(keyEventOf(pressed).code, 0);
}

TEST(KeyCodes, mouseButtons) {
    EXPECT_EQ(mouseButtonOf(Qt::LeftButton), MouseButton::Left);
    EXPECT_EQ(mouseButtonOf(Qt::RightButton), MouseButton::Right);
    EXPECT_EQ(mouseButtonOf(Qt::MiddleButton), MouseButton::Middle);
    EXPECT_EQ(mouseButtonOf(Qt::BackButton), MouseButton::None);
}

} // namespace
} // namespace tovik::ui
