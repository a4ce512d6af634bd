// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/GlyphText.h"

#include "StripPicture.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using test::stripPixel;
using testing::Each;

struct Row {
    std::u32string_view characters;
    int firstX;
    int y;
};

TEST(GlyphText, everyCharacterHasItsPlace) {
    for (const Row& row :
         {Row{U"abcdefghijklmnopqrstuvwxyz", 0, 0}, Row{U" ", 145, 0}, Row{U"0123456789.", 0, 6},
          Row{U":()-'!_+\\/[]^&%,=$#", 60, 6}, Row{U"\u00E4\u00F6", 0, 12}, Row{U"?*", 15, 12}}) {
        int x = row.firstX;
        for (const char32_t character : row.characters) {
            EXPECT_EQ(findGlyph(character), (GlyphPlace{x, row.y}))
                << static_cast<std::uint32_t>(character);
            EXPECT_TRUE(hasGlyph(character));
            x += 5;
        }
    }
}

TEST(GlyphText, capitalsAreSmallLetters) {
    EXPECT_EQ(findGlyph(U'A'), findGlyph(U'a'));
    EXPECT_EQ(findGlyph(U'Z'), findGlyph(U'z'));
    EXPECT_EQ(findGlyph(U'\u00C4'), findGlyph(U'\u00E4'));
    EXPECT_EQ(findGlyph(U'\u00D6'), findGlyph(U'\u00F6'));
}

TEST(GlyphText, whatTheStripDoesNotHaveLooksLikeItsFirstGlyph) {
    for (const char32_t character : {U';', U'"', U'@', U'\u00FC', U'\u017E', U'\u20AC', U'\0'}) {
        EXPECT_EQ(findGlyph(character), GlyphPlace{});
        EXPECT_FALSE(hasGlyph(character));
    }
}

TEST(GlyphText, oneCharacterIsOneGlyphInEitherEncoding) {
    EXPECT_EQ(charactersOf("M\u00F6\u20AC\U0001F500x"), U"M\u00F6\u20AC\U0001F500x");
    EXPECT_EQ(charactersOf("M\xF6gen"), U"M\u00F6gen");
    EXPECT_EQ(charactersOf(""), U"");
}

TEST(GlyphText, charactersBecomeUtf8) {
    EXPECT_EQ(utf8Of(U"M\u00F6\u20AC\U0001F500x"), "M\u00F6\u20AC\U0001F500x");
}

TEST(GlyphText, theColoursOfAStripAreItsCommonestInkAndItsBlank) {
    PixelImage strip{155, 18, std::vector<std::uint32_t>(155 * 18, 0)};
    for (int i = 0; i < 9; ++i) {
        strip.pixels[static_cast<std::size_t>(i)] = i < 3   ? 0xFF112233
                                                    : i < 5 ? 0x80808080
                                                            : 0xFFAABBCC;
    }
    EXPECT_EQ(stripColours(strip).ink, (Colour{0xAA, 0xBB, 0xCC}));
    EXPECT_EQ(stripColours(strip).ground, std::nullopt);
    for (std::uint32_t& pixel : strip.pixels) {
        pixel = pixel == 0 ? 0xFF010203 : pixel;
    }
    EXPECT_EQ(stripColours(strip).ink, (Colour{0xAA, 0xBB, 0xCC}));
    EXPECT_EQ(stripColours(strip).ground, (Colour{1, 2, 3}));
}

TEST(GlyphText, aStripWithoutInkIsReadAsWhite) {
    EXPECT_EQ(stripColours({}).ink, (Colour{255, 255, 255}));
    EXPECT_EQ(stripColours({2, 2, std::vector<std::uint32_t>(4, 0)}).ground, std::nullopt);
}

TEST(GlyphText, drawsGlyphAfterGlyph) {
    cMemDC surface;
    surface.Init(20, 10);
    drawText(surface, test::strip(), U"b1\u00E4");
    const PixelImage& image = surface.Image();
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 20; ++x) {
            std::uint32_t expected = 0;
            if (y >= 3 && y < 9 && x >= 1 && x < 16) {
                const int inside = (x - 1) % 5;
                const int glyph = (x - 1) / 5;
                constexpr std::array kLeft{5, 5, 0};
                expected = stripPixel(kLeft.at(static_cast<std::size_t>(glyph)) + inside,
                                      glyph * 6 + y - 3);
            }
            ASSERT_EQ(image.pixels[pixelPlace(image, x, y)], expected) << x << "," << y;
        }
    }
}

TEST(GlyphText, clearsFirstAndDrawsOnItsLine) {
    cMemDC surface;
    surface.Init(8, 20);
    surface.FillRect(0, 0, 8, 20, {9, 9, 9});
    drawText(surface, test::strip(), U"c", 1);
    EXPECT_EQ(surface.Image().pixels[pixelPlace(surface.Image(), 1, 11)], stripPixel(10, 0));
    EXPECT_EQ(surface.Image().pixels[pixelPlace(surface.Image(), 1, 10)], 0U);
    drawText(surface, test::strip(), U"");
    EXPECT_THAT(surface.Image().pixels, Each(0U));
}

TEST(GlyphText, whatDoesNotFitIsCutOff) {
    cMemDC surface;
    surface.Init(8, 5);
    drawText(surface, test::strip(), std::u32string(100000, U'b'));
    EXPECT_EQ(surface.Image().pixels[pixelPlace(surface.Image(), 7, 4)], stripPixel(6, 1));
}

TEST(GlyphText, drawsWithAStripThatIsSeveralTimesAsLarge) {
    PixelImage large{155 * 2, 18 * 2, {}, 2};
    for (int y = 0; y < large.height; ++y) {
        for (int x = 0; x < large.width; ++x) {
            large.pixels.push_back(stripPixel(x / 2, y / 2, static_cast<std::uint32_t>(x % 2)));
        }
    }
    cMemDC surface;
    surface.Init(40, 20);
    drawText(surface, large, U"b1");
    const auto at = [&](int x, int y) {
        return surface.Image().pixels[pixelPlace(surface.Image(), x, y)];
    };
    EXPECT_EQ(at(1, 6), 0U);
    EXPECT_EQ(at(2, 5), 0U);
    EXPECT_EQ(at(2, 6), stripPixel(5, 0, 0));
    EXPECT_EQ(at(3, 6), stripPixel(5, 0, 1));
    EXPECT_EQ(at(11, 17), stripPixel(9, 5, 1));
    EXPECT_EQ(at(12, 6), stripPixel(5, 6, 0));
    EXPECT_EQ(at(22, 6), 0U);
}

TEST(GlyphText, aStripThatIsTooSmallGivesWhatItHas) {
    cMemDC surface;
    surface.Init(8, 10);
    drawText(surface, {3, 3, std::vector<std::uint32_t>(9, 0xFF010101)}, U"a");
    EXPECT_EQ(surface.Image().pixels[pixelPlace(surface.Image(), 3, 5)], 0xFF010101U);
    EXPECT_EQ(surface.Image().pixels[pixelPlace(surface.Image(), 4, 5)], 0U);
}

} // namespace
} // namespace tovik::ui
