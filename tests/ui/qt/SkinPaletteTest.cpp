// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SkinPalette.h"

#include "support/ui/Contrast.h"

#include <gtest/gtest.h>

#include <array>

namespace tovik::ui {
namespace {

Colour colourOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

double contrastOf(QPalette::ColorGroup group, QPalette::ColorRole text, QPalette::ColorRole back) {
    const QPalette palette = skinPalette();
    return test::contrast(colourOf(palette.color(group, text)),
                          colourOf(palette.color(group, back)));
}

struct Pair {
    QPalette::ColorRole text;
    QPalette::ColorRole back;
};

constexpr std::array kPairs{
    Pair{QPalette::WindowText, QPalette::Window},
    Pair{QPalette::Text, QPalette::Base},
    Pair{QPalette::Text, QPalette::AlternateBase},
    Pair{QPalette::ButtonText, QPalette::Button},
    Pair{QPalette::HighlightedText, QPalette::Highlight},
    Pair{QPalette::ToolTipText, QPalette::ToolTipBase},
};

TEST(SkinPalette, wordsStandOutAndThoseOfWhatIsDisabledAreQuieter) {
    for (const Pair& pair : kPairs) {
        EXPECT_GE(contrastOf(QPalette::Active, pair.text, pair.back), 7) << pair.text;
        EXPECT_GE(contrastOf(QPalette::Inactive, pair.text, pair.back), 7) << pair.text;
    }
    EXPECT_GE(contrastOf(QPalette::Active, QPalette::PlaceholderText, QPalette::Base), 4.5);
    const double disabled = contrastOf(QPalette::Disabled, QPalette::WindowText, QPalette::Window);
    EXPECT_GE(disabled, 2);
    EXPECT_LT(disabled, 4.5);
}

TEST(SkinPalette, isTintedAndHasTheInkOfTheWindow) {
    const QPalette palette = skinPalette();
    EXPECT_EQ(palette.color(QPalette::WindowText), QColor(33, 33, 82));
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        const QColor colour = palette.color(ground);
        EXPECT_GT(colour.blue(), colour.red()) << ground;
        EXPECT_GT(colour.lightness(), 190) << ground;
    }
}

} // namespace
} // namespace tovik::ui
