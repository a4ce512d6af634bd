// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/Accelerator.h"

#include <gmock/gmock.h>

namespace tovik::menus {
namespace {

constexpr int kShift = AcceleratorKey::kShift;
constexpr int kCtrl = AcceleratorKey::kCtrl;
constexpr int kAlt = AcceleratorKey::kAlt;

TEST(Accelerator, keysAreWrittenInOneForm) {
    EXPECT_EQ(acceleratorText({'K', kCtrl | kShift}), "Ctrl+Shift+K");
    EXPECT_EQ(acceleratorText({'K', kCtrl | kAlt | kShift}), "Ctrl+Alt+Shift+K");
    EXPECT_EQ(acceleratorText({0x70, 0}), "F1");
    EXPECT_EQ(acceleratorText({0x87, kAlt}), "Alt+F24");
    EXPECT_EQ(acceleratorText({0x61, 0}), "Num1");
    EXPECT_EQ(acceleratorText({0xBB, kCtrl}), "Ctrl+Plus");
    EXPECT_EQ(acceleratorText({0x88, 0}), "");
    EXPECT_EQ(acceleratorText({0, kCtrl}), "");
}

TEST(Accelerator, everyKeyWithANameComesBack) {
    int named = 0;
    for (int code = 0; code <= 0xFF; ++code) {
        for (int shift = 0; shift <= 7; ++shift) {
            const AcceleratorKey key{code, shift};
            if (const std::string text = acceleratorText(key); !text.empty()) {
                EXPECT_EQ(acceleratorOf(text), key) << text;
                ++named;
            }
        }
    }
    EXPECT_EQ(named, (26 + 10 + 24 + 34) * 8);
}

TEST(Accelerator, writtenByHandItMayBeInAnyCaseAndOrder) {
    EXPECT_EQ(acceleratorOf("shift+CTRL+k"), (AcceleratorKey{'K', kCtrl | kShift}));
    for (const char* const text :
         {"", "Ctrl", "Ctrl+", "+", "K+Ctrl", "Ctrl++", "Hyper+K", "F25", "F0", "Ctrl+KK", " K"}) {
        EXPECT_EQ(acceleratorOf(text), std::nullopt) << text;
    }
}

TEST(Accelerator, theSameKeyIsTheSameAccelerator) {
    EXPECT_TRUE(sameAccelerator("Ctrl+K", "ctrl+k"));
    EXPECT_TRUE(sameAccelerator("Kazoo", "Kazoo"));
    EXPECT_FALSE(sameAccelerator("Kazoo", "kazoo"));
    EXPECT_FALSE(sameAccelerator("Ctrl+K", "K"));
    EXPECT_FALSE(sameAccelerator("", ""));
}

} // namespace
} // namespace tovik::menus
