// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SetOpacity.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

TEST(SetOpacity, percentsBecomeTheAlphaOfALayer) {
    EXPECT_EQ(layerAlpha(0), 0);
    EXPECT_EQ(layerAlpha(1), 3);
    EXPECT_EQ(layerAlpha(10), 26); // 25.5
    EXPECT_EQ(layerAlpha(30), 76); // 76.5
    EXPECT_EQ(layerAlpha(50), 128);
    EXPECT_EQ(layerAlpha(99), 252);
}

TEST(SetOpacity, anyOtherValueIsNoLayer) {
    for (const int percent : {100, 101, -1, 255}) {
        EXPECT_EQ(layerAlpha(percent), std::nullopt) << percent;
    }
}

TEST(SetOpacity, theWindowBecomesTransparentAndPlainAgain) {
    QWidget window;
    SetOpacity(window, 50);
    EXPECT_NEAR(window.windowOpacity(), 0.5, 0.01);
    SetOpacity(window, 0);
    window.show();
    EXPECT_EQ(window.windowOpacity(), 0);
    EXPECT_TRUE(window.isVisible());
    SetOpacity(window, 100);
    EXPECT_EQ(window.windowOpacity(), 1);
}

} // namespace
} // namespace tovik::ui
