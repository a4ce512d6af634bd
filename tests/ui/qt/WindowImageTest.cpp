// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/WindowImage.h"

#include "../SmallWindow.h"

#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

using test::Small;

class WindowImageTest : public testing::Test {
protected:
    /// The image once the written records are known to have changed.
    const QImage& composed() {
        for (const ElementStore::Change& change : table.takeChanges()) {
            for (const auto& box : {change.before, change.after}) {
                if (box) {
                    image.invalidate(paintedBox(*box));
                }
            }
        }
        return image.compose(std::nullopt);
    }

    /// A picture of four pixels, each in another colour.
    Picture corners() {
        return pictures.add({2, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF}});
    }

    ElementTable<Small> table{test::kSmallLayout};
    PictureStore pictures;
    WindowImage image{table, pictures};
};

TEST_F(WindowImageTest, isAWholeNumberOfTimesAsLargeAsTheWindow) {
    EXPECT_EQ(composed().size(), QSize(200, 100));
    image.setFactor(3);
    EXPECT_EQ(composed().size(), QSize(600, 300));
    table.touch(Small::ground).height = 120;
    EXPECT_EQ(composed().size(), QSize(600, 360));
}

TEST_F(WindowImageTest, picturesGrowByWholePixels) {
    table.touch(Small::lamp, 0).picture = corners();
    for (const int factor : {1, 2, 3}) {
        image.setFactor(factor);
        const QImage& shown = composed();
        for (int y = 0; y < 2 * factor; ++y) {
            for (int x = 0; x < 2 * factor; ++x) {
                const int corner = y / factor * 2 + x / factor;
                constexpr std::array<QRgb, 4> kColours{0xFFFF0000, 0xFF00FF00, 0xFF0000FF,
                                                       0xFFFFFFFF};
                ASSERT_EQ(shown.pixel(10 * factor + x, 70 * factor + y),
                          kColours.at(static_cast<std::size_t>(corner)))
                    << factor << ": " << x << "," << y;
            }
        }
    }
}

TEST_F(WindowImageTest, aPictureMadeForTheSizeOfTheImageIsShownAsItIs) {
    table.touch(Small::lamp, 0).picture =
        pictures.add({.width = 2,
                      .height = 2,
                      .pixels = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF},
                      .density = 2});
    image.setFactor(2);
    const QImage fine = composed();
    EXPECT_EQ(fine.pixel(20, 140), 0xFFFF0000);
    EXPECT_EQ(fine.pixel(21, 140), 0xFF00FF00);
    EXPECT_EQ(fine.pixel(20, 141), 0xFF0000FF);
    EXPECT_EQ(fine.pixel(21, 141), 0xFFFFFFFF);
    // On another screen, until there is one for that: it keeps its place.
    image.setFactor(4);
    const QImage coarse = composed();
    EXPECT_EQ(coarse.pixel(40, 280), 0xFFFF0000);
    EXPECT_EQ(coarse.pixel(41, 281), 0xFFFF0000);
    EXPECT_EQ(coarse.pixel(43, 283), 0xFFFFFFFF);
}

TEST_F(WindowImageTest, pixelsOfAPictureStayWholeWhereverItStands) {
    table.touch(Small::lamp, 1).picture = corners(); // at 30.5
    const QImage& shown = composed();
    EXPECT_EQ(shown.pixel(31, 70), 0xFFFF0000);
    EXPECT_EQ(shown.pixel(32, 70), 0xFF00FF00);
    image.setFactor(2);
    EXPECT_EQ(composed().pixel(61, 140), 0xFFFF0000);
    EXPECT_NE(composed().pixel(60, 140), 0xFFFF0000);
}

TEST_F(WindowImageTest, picturesAreTakenInTheSizeOfTheImageWhereTheyAreDrawnInIt) {
    // Drawn twice as large it is a pattern that enlarging cannot make.
    const auto pattern = [](int factor) {
        PixelImage large{2 * factor, 2 * factor, {}, factor};
        for (int i = 0; i < 4 * factor * factor; ++i) {
            large.pixels.push_back(0xFF000000U + static_cast<std::uint32_t>(i));
        }
        return large;
    };
    table.touch(Small::lamp, 0).picture =
        pictures.add({2, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF}},
                     [&](int factor) { return factor % 2 == 0 ? pattern(2) : PixelImage{}; });
    const auto at = [&](int x, int y) { return composed().pixel(x, y); };
    EXPECT_EQ(at(10, 70), 0xFFFF0000);
    image.setFactor(2);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(at(20 + i % 4, 140 + i / 4), 0xFF000000U + static_cast<std::uint32_t>(i));
    }
    image.setFactor(3);
    EXPECT_EQ(at(32, 212), 0xFFFF0000) << "enlarged";
    image.setFactor(4);
    EXPECT_EQ(at(41, 281), 0xFF000000) << "the larger one, enlarged once more";
    EXPECT_EQ(at(42, 280), 0xFF000001);
    // What does not fit its place is cut off at that size, too.
    image.setFactor(2);
    table.touch(Small::lamp, 0).width = 1;
    EXPECT_EQ(at(21, 140), 0xFF000001);
    EXPECT_NE(at(22, 140), 0xFF000002);
}

TEST_F(WindowImageTest, theWordsOfAWidgetAreLeftToIt) {
    table.touch(Small::list).textColour = {255, 255, 255};
    const QImage without = composed();
    table.touch(Small::list).caption = "Title";
    EXPECT_EQ(composed(), without);
    table.touch(Small::list).kind = ElementKind::Label;
    EXPECT_NE(composed(), without);
}

TEST_F(WindowImageTest, wordsAreDrawnInTheSizeOfTheImage) {
    table.touch(Small::title).caption = "Title";
    table.touch(Small::title).textColour = {255, 255, 255};
    image.setFactor(2);
    const QImage large = composed();
    image.setFactor(1);
    const QImage blown = composed().scaled(large.size());
    EXPECT_NE(large, blown);
}

TEST_F(WindowImageTest, smallWordsStandInPlaceOfThePictureAtEveryScale) {
    Element& lamp = table.touch(Small::lamp, 0);
    lamp.left = 100;
    lamp.width = 40;
    lamp.height = 10;
    lamp.picture = pictures.add({40, 10, std::vector<std::uint32_t>(400, 0xFFFF0000)});
    lamp.smallText = "\u0416\u0443\u043A";
    lamp.textColour = {255, 255, 255};
    lamp.backColour = Colour{0, 0, 0};
    table.touch(Small::ground).picture =
        pictures.add({200, 100, std::vector<std::uint32_t>(20000, 0xFF00FF00)});
    for (const int factor : {1, 2, 3}) {
        image.setFactor(factor);
        const QImage& shown = composed();
        int ink = 0;
        for (int y = 70 * factor; y < 80 * factor; ++y) {
            for (int x = 100 * factor; x < 140 * factor; ++x) {
                const QColor seen = shown.pixelColor(x, y);
                ink += seen.lightness() > 160 ? 1 : 0;
                ASSERT_EQ(seen.hsvSaturation() > 200 && seen.value() > 100, false)
                    << "neither picture nor ground, " << x << "," << y;
            }
        }
        EXPECT_GT(ink, 10 * factor * factor);
        EXPECT_EQ(shown.pixel(100 * factor, 69 * factor), 0xFF00FF00) << "they stay in their box";
        EXPECT_EQ(shown.pixel(100 * factor, 80 * factor), 0xFF00FF00);
    }
}

TEST_F(WindowImageTest, aLabelShowsAllOfItsWords) {
    Element& label = table.touch(Small::title);
    label.left = 10;
    label.width = 118;
    label.textColour = {255, 255, 255};
    const auto rightHalf = [&](const std::string& caption) {
        table.touch(Small::title).caption = caption;
        return composed().copy(10 + 59, 5, 59 + 4, 25);
    };
    // The widest letter there is: with dots in their place the last ones would make no difference.
    const std::string most(16, 'W');
    EXPECT_NE(rightHalf(most + "W"), rightHalf(most + "i"));
    EXPECT_NE(rightHalf(std::string(60, 'W')), rightHalf(most + "W"));
    EXPECT_EQ(rightHalf(std::string(60, 'W')), rightHalf(std::string(60, 'W') + "i"))
        << "there is an end to it";
}

TEST_F(WindowImageTest, holesOfThePicturesAreTransparent) {
    PixelImage ground{200, 100, std::vector<std::uint32_t>(20000, 0xFF102030)};
    ground.pixels[0] = 0;
    table.touch(Small::ground).picture = pictures.add(ground);
    EXPECT_EQ(composed().pixel(0, 0), 0U);
    EXPECT_EQ(composed().pixel(1, 0), 0xFF102030);
    image.setFactor(2);
    EXPECT_EQ(composed().pixel(1, 1), 0U);
    EXPECT_EQ(composed().pixel(2, 1), 0xFF102030);
}

TEST_F(WindowImageTest, onlyWhatLooksDifferentIsDrawnAnew) {
    table.touch(Small::ground).picture =
        pictures.add({200, 100, std::vector<std::uint32_t>(20000, 0xFF102030)});
    static_cast<void>(composed());
    // Pixels that change behind its back are only seen where something is drawn anew.
    static_cast<void>(pictures.replace(table.get(Small::ground).picture,
                                       {200, 100, std::vector<std::uint32_t>(20000, 0xFF405060)}));
    table.touch(Small::lamp, 2).backColour = Colour{0, 0, 0};
    const QImage& shown = composed();
    EXPECT_EQ(shown.pixel(49, 69), 0xFF405060); // beside the lamp at 51
    EXPECT_EQ(shown.pixel(44, 75), 0xFF102030);
    EXPECT_EQ(shown.pixel(195, 95), 0xFF102030);
    image.invalidateAll();
    EXPECT_EQ(composed().pixel(195, 95), 0xFF405060);
}

TEST_F(WindowImageTest, onePictureGivesThreeFaces) {
    Element& lamp = table.touch(Small::lamp, 0);
    lamp.picture = pictures.add({2, 1, {0xFF6080A0, 0}});
    const QRgb below = composed().pixel(11, 70);
    EXPECT_EQ(composed().pixel(10, 70), 0xFF6080A0);
    table.touch(Small::lamp, 0).shade = Shade::Lighter;
    const QRgb lighter = composed().pixel(10, 70);
    table.touch(Small::lamp, 0).shade = Shade::Darker;
    const QRgb darker = composed().pixel(10, 70);
    const QColor own(0x60, 0x80, 0xA0);
    EXPECT_GT(QColor(lighter).value(), own.value() + 20);
    EXPECT_LT(QColor(darker).value(), own.value() - 20);
    EXPECT_GT(qRed(lighter), own.red() + 10);
    EXPECT_LT(qRed(darker), own.red() - 10);
    EXPECT_EQ(composed().pixel(11, 70), below); // a hole stays one
    table.touch(Small::lamp, 0).shade = Shade::None;
    EXPECT_EQ(composed().pixel(10, 70), 0xFF6080A0);
}

TEST_F(WindowImageTest, theLightestColourStaysOne) {
    table.touch(Small::lamp, 0).picture = pictures.add({1, 1, {0xFFF0F0F0}});
    table.touch(Small::lamp, 0).shade = Shade::Lighter;
    EXPECT_EQ(composed().pixel(10, 70), 0xFFFFFFFF);
}

TEST_F(WindowImageTest, aDisabledPictureIsPale) {
    table.touch(Small::ground).picture =
        pictures.add({200, 100, std::vector<std::uint32_t>(20000, 0xFF000000)});
    table.touch(Small::lamp, 0).picture = pictures.add({1, 1, {0xFFFFFFFF}});
    table.touch(Small::lamp, 0).enabled = false;
    const int pale = qRed(composed().pixel(10, 70));
    EXPECT_GT(pale, 60);
    EXPECT_LT(pale, 160);
}

TEST_F(WindowImageTest, elementsAloneStandWhereTheyStandInTheWindow) {
    table.touch(Small::lamp, 0).picture = corners(); // at 10, 70
    for (const int factor : {1, 2}) {
        image.setFactor(factor);
        const QImage part =
            image.alone({table.slotOf(addressOf(Small::lamp))}, QRect(8, 69, 20, 20));
        EXPECT_EQ(part.size(), QSize(20, 20) * factor);
        EXPECT_EQ(part.pixel(2 * factor, 1 * factor), 0xFFFF0000);
        EXPECT_EQ(part.pixel(3 * factor, 2 * factor), 0xFFFFFFFF);
        EXPECT_EQ(part.pixel(0, 0), 0U);
        EXPECT_EQ(part.pixel(4 * factor, 3 * factor), 0U);
    }
}

TEST_F(WindowImageTest, aRedrawnPlaceKeepsNothingOfBefore) {
    table.touch(Small::ground).picture =
        pictures.add({200, 100, std::vector<std::uint32_t>(20000, 0)});
    table.touch(Small::lamp, 0).visible = true;
    EXPECT_NE(composed().pixel(15, 76), 0U);
    table.touch(Small::lamp, 0).visible = false;
    EXPECT_EQ(composed().pixel(15, 76), 0U);
}

} // namespace
} // namespace tovik::ui
