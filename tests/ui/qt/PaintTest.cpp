// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/PlainFace.h"
#include "WindowRig.h"

#include <gtest/gtest.h>

#include <QImage>

namespace tovik::ui {
namespace {

using test::Small;

class PaintTest : public testing::Test, protected test::WindowRig {
protected:
    void SetUp() override { ASSERT_TRUE(show()); }

    /// The box and what a plain caption may take round it.
    static QRect around(const Box& box) {
        const int margin = static_cast<int>(kPlainOverflow);
        return QRectF(box.left, box.top, box.width, box.height)
            .toAlignedRect()
            .adjusted(-margin, -margin, margin, margin);
    }

    /// The window as it is once everything that was written shows.
    QImage picture() {
        settle();
        return window.grab().toImage();
    }
};

TEST_F(PaintTest, onlyTheRectangleOfWhatChangedIsPainted) {
    table.touch(Small::title).caption = "Hello";
    settle();
    EXPECT_EQ(painted.regions.size(), 1U);
    EXPECT_EQ(painted.take(), QRegion(around({10, 10, 80, 14})));
}

TEST_F(PaintTest, manyWritesMakeOnePaintOfTheirRectangles) {
    for (int i = 0; i < 100; ++i) {
        table.touch(Small::title).caption = std::to_string(i);
        table.touch(Small::lamp, 0).checked = i % 2 == 0;
        table.touch(Small::lamp, 2).height = 5 + i % 3;
    }
    table.touch(Small::lamp, 2).height = 6;
    table.touch(Small::lamp, 0).checked = true;
    settle();
    EXPECT_EQ(painted.regions.size(), 1U);
    EXPECT_EQ(painted.take(), QRegion(around({10, 10, 80, 14})) + around({10, 70, 10, 12}) +
                                  around({51, 70, 10, 12}));
}

TEST_F(PaintTest, aWriteOfTheSameValuePaintsNothing) {
    table.touch(Small::title).caption = "";
    table.touch(Small::up).visible = true;
    table.touch(Small::down).caption = "hidden";
    table.touch(Small::title).tooltip = "words";
    settle();
    EXPECT_TRUE(painted.regions.empty());
}

TEST_F(PaintTest, whatMovesIsPaintedWhereItWasAndIs) {
    table.touch(Small::lamp, 0).top = 30;
    settle();
    EXPECT_EQ(painted.take(), QRegion(around({10, 70, 10, 12})) + around({10, 30, 10, 12}));
}

TEST_F(PaintTest, aHiddenWindowPaintsNothingAndShowsTheLatestLater) {
    window.hide();
    table.touch(Small::lamp, 0).textColour = {0, 255, 0};
    table.touch(Small::lamp, 0).checked = true;
    settle();
    EXPECT_TRUE(painted.regions.empty());
    window.show();
    const QColor lamp = picture().pixelColor(15, 76);
    EXPECT_GT(lamp.green(), 200);
    EXPECT_LT(lamp.red(), 100);
}

TEST_F(PaintTest, elementsAreDrawnInTheirOrder) {
    EXPECT_GT(picture().pixelColor(44, 56).blue(), 150);
    table.touch(Small::down).visible = true;
    const QColor above = picture().pixelColor(44, 56);
    EXPECT_GT(above.green(), 150);
    EXPECT_LT(above.blue(), 100);
}

TEST_F(PaintTest, aPictureIsShownAsItIsAndCutToItsElement) {
    PixelImage image{20, 20, std::vector<std::uint32_t>(400, 0xFF00FF00)};
    for (std::size_t i = 0; i < 200; ++i) {
        image.pixels[i] = 0xFF0000FF; // the upper half
    }
    image.pixels[0] = 0; // a hole
    table.touch(Small::lamp, 1).picture = pictures.add(image);
    table.touch(Small::lamp, 1).left = 31;
    const QImage shown = picture();
    EXPECT_EQ(shown.pixelColor(32, 70), QColor(0, 0, 255));
    EXPECT_EQ(shown.pixelColor(40, 81), QColor(0, 255, 0));
    EXPECT_LT(shown.pixelColor(31, 70).blue(), 60);  // the ground
    EXPECT_LT(shown.pixelColor(41, 75).blue(), 60);  // the element is 10 wide
    EXPECT_LT(shown.pixelColor(35, 82).green(), 60); // and 12 high
}

TEST_F(PaintTest, newPixelsAreShownOnceTheRecordHasTheirVersion) {
    const Picture first = pictures.add({1, 1, {0xFF0000FF}});
    table.touch(Small::lamp, 0).picture = first;
    settle();
    static_cast<void>(painted.take());
    table.touch(Small::lamp, 0).picture = pictures.replace(first, {1, 1, {0xFFFF0000}});
    settle();
    EXPECT_EQ(painted.take(), QRegion(around({10, 70, 10, 12})));
    EXPECT_EQ(picture().pixelColor(10, 70), QColor(255, 0, 0));
}

TEST_F(PaintTest, captionsAreLegibleAndDisabledElementsPale) {
    const auto ink = [&] {
        const QImage shown = picture();
        int most = 0;
        for (int y = 8; y < 26; ++y) {
            for (int x = 8; x < 92; ++x) {
                most = std::max(most, shown.pixelColor(x, y).red());
            }
        }
        return most;
    };
    table.touch(Small::title).textColour = {255, 255, 255};
    EXPECT_LT(ink(), 60);
    table.touch(Small::title).caption = "\u25A0\u25A0 Title";
    EXPECT_GT(ink(), 200);
    table.touch(Small::title).enabled = false;
    EXPECT_LT(ink(), 180);
    table.touch(Small::title).visible = false;
    EXPECT_LT(ink(), 60);
}

TEST_F(PaintTest, aSlidersBarStandsOnItsBack) {
    Element& slider = table.touch(Small::lamp, 1);
    slider.kind = ElementKind::Slider;
    slider.left = 31;
    slider.textColour = {0, 255, 0};
    slider.bar = {.top = 4, .height = 4, .picture = {}};
    EXPECT_GT(picture().pixelColor(36, 75).green(), 200) << "the plain bar";
    EXPECT_GT(picture().pixelColor(36, 72).red(), 150) << "the plain groove";
    EXPECT_GT(picture().pixelColor(36, 80).red(), 150);

    const Picture back = pictures.add({10, 12, std::vector<std::uint32_t>(120, 0xFF0000FF)});
    const Picture bar = pictures.add({20, 20, std::vector<std::uint32_t>(400, 0xFFFFFFFF)});
    table.touch(Small::lamp, 1).picture = back;
    table.touch(Small::lamp, 1).bar.picture = bar;
    settle();
    static_cast<void>(painted.take());
    table.touch(Small::lamp, 1).bar.top = 0;
    settle();
    EXPECT_EQ(painted.take(), QRegion(around({31, 70, 10, 12})));
    const QImage shown = picture();
    EXPECT_EQ(shown.pixelColor(31, 70), QColor(255, 255, 255));
    EXPECT_EQ(shown.pixelColor(40, 73), QColor(255, 255, 255)) << "cut to the bar's height";
    EXPECT_EQ(shown.pixelColor(31, 74), QColor(0, 0, 255));
    EXPECT_EQ(shown.pixelColor(40, 81), QColor(0, 0, 255));
}

TEST_F(PaintTest, aPlainButtonLightsUpUnderThePointer) {
    moveMouse({150, 90});
    settle();
    const QColor before = picture().pixelColor(44, 56);
    static_cast<void>(painted.take());
    moveMouse({45, 45});
    settle();
    EXPECT_EQ(painted.take(), QRegion(around({40, 40, 30, 20})));
    EXPECT_GT(picture().pixelColor(44, 56).lightness(), before.lightness());
}

} // namespace
} // namespace tovik::ui
