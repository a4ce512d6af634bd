// SPDX-License-Identifier: GPL-3.0-or-later
// What the display shows: the strips of characters, the lamps.
#include "GlyphTable.h"
#include "SkinPictures.h"
#include "ui/GlyphText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace tovik::skinart {
namespace {

using N = window::MainElement;

/// The pixels of a cell of a strip, as text.
std::string cellOf(const QImage& strip, QPoint corner) {
    std::string cell;
    for (int y = 0; y < kGlyphHeight; ++y) {
        for (int x = 0; x < kGlyphWidth; ++x) {
            cell += strip.pixel(corner + QPoint(x, y)) == strip.pixel(154, 17) ? '.' : 'X';
        }
    }
    return cell;
}

struct Row {
    int top;
    std::string_view characters;
    int first = 0;
};

/// Where each character stands, by the rows of the strip.
constexpr auto kRows = std::to_array<Row>({
    {0, "abcdefghijklmnopqrstuvwxyz"},
    {6, "0123456789."},
    {6, ":()-'!_+\\/[]^&%,=$#", 60},
    {12, "ao"}, // with two dots
    {12, "?*", 15},
});

TEST(SkinGlyphs, everyCharacterStandsInItsCellAndLooksLikeNoOther) {
    for (const std::string name : {"text", "text2"}) {
        const QImage& strip = picture(name);
        EXPECT_EQ(strip.size(), QSize(155, 18));
        std::set<std::string> shapes;
        std::set<std::pair<int, int>> used;
        std::size_t characters = 0;
        for (const Row& row : kRows) {
            for (std::size_t i = 0; i < row.characters.size(); ++i) {
                const int left = row.first + static_cast<int>(i) * kGlyphWidth;
                const std::string shape = cellOf(strip, {left, row.top});
                used.insert({left, row.top});
                ++characters;
                EXPECT_NE(shape.find('X'), std::string::npos) << row.characters[i];
                EXPECT_TRUE(shapes.insert(shape).second) << row.characters[i] << " of " << name;
            }
        }
        EXPECT_EQ(characters, 60U);
        EXPECT_EQ(characters, glyphs().size());
        // All other cells are blank, that of the blank among them.
        for (int top = 0; top < kStripHeight; top += kGlyphHeight) {
            for (int left = 0; left < kStripWidth; left += kGlyphWidth) {
                if (!used.contains({left, top})) {
                    EXPECT_EQ(cellOf(strip, {left, top}).find('X'), std::string::npos)
                        << left << "," << top;
                }
            }
        }
    }
}

TEST(SkinGlyphs, charactersStandWhereWordsTakeThem) {
    std::size_t found = 0;
    for (const Glyph& glyph : glyphs()) {
        const std::u32string character = ui::charactersOf(glyph.character);
        ASSERT_EQ(character.size(), 1U) << glyph.character;
        ASSERT_TRUE(ui::hasGlyph(character.front())) << glyph.character;
        EXPECT_EQ(ui::findGlyph(character.front()), (ui::GlyphPlace{glyph.left, glyph.top}))
            << glyph.character;
        ++found;
    }
    EXPECT_EQ(found, 60U);
}

TEST(SkinGlyphs, aCharacterLeavesTheGapToTheNext) {
    const QImage& strip = picture("text");
    for (const Glyph& glyph : glyphs()) {
        for (int y = 0; y < kGlyphHeight; ++y) {
            EXPECT_EQ(strip.pixel(glyph.left + kGlyphWidth - 1, glyph.top + y),
                      strip.pixel(154, 17))
                << glyph.character;
        }
    }
}

TEST(SkinGlyphs, theSecondStripIsDim) {
    EXPECT_GT(brightest(picture("text")), 2 * brightest(picture("text2")));
    EXPECT_GT(brightest(picture("text2")), 60);
}

TEST(SkinGlyphs, theWordsOfTheDisplayStandOutFromItsGlass) {
    const QImage& screen = picture("screen");
    const auto contrast = [](QRgb one, QRgb other) {
        const auto light = [](QRgb pixel) {
            const auto part = [](int value) { return std::pow(value / 255.0, 2.2); };
            return 0.2126 * part(qRed(pixel)) + 0.7152 * part(qGreen(pixel)) +
                   0.0722 * part(qBlue(pixel));
        };
        const double a = light(one);
        const double b = light(other);
        return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
    };
    // The first pixels of "e" are set; the fields of the words lie below the upper edge.
    for (const int y : {16, 60, 80}) {
        EXPECT_GT(contrast(picture("text").pixel(20, 0), screen.pixel(105, y)), 12) << y;
        EXPECT_GT(contrast(picture("text2").pixel(20, 0), screen.pixel(105, y)), 3) << y;
    }
}

TEST(SkinGlyphs, lampsKeepClearOfTheLastDigitAndStandWhereTheyStandUnlit) {
    const auto firstColumn = [](const std::string& name, N element) {
        const QImage& image = picture(name);
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (!isKey(image.pixel(x, y))) {
                    return static_cast<int>(rectOf({element}).left()) + x;
                }
            }
        }
        return 0;
    };
    const QImage& digit = picture("8");
    int end = digit.width();
    const auto blank = [&digit](int x) {
        for (int y = 0; y < digit.height(); ++y) {
            if (!isKey(digit.pixel(x, y))) {
                return false;
            }
        }
        return true;
    };
    while (blank(end - 1)) {
        --end;
    }
    const int lastDigit = static_cast<int>(rectOf({N::timed, 5}).left()) + end;
    EXPECT_GE(firstColumn("shuffle", N::Shuffle), lastDigit + 3);
    EXPECT_GE(firstColumn("cfd", N::CFD), lastDigit + 3);
    EXPECT_EQ(firstColumn("shuffle", N::Shuffle), firstColumn("shuffle2", N::ShuffleDown));
    EXPECT_EQ(firstColumn("loop", N::loopImg), firstColumn("loop2", N::LoopImg2));
    EXPECT_EQ(firstColumn("cfd", N::CFD), firstColumn("cfd2", N::CFD2));
    EXPECT_EQ(firstColumn("sld", N::Sld), firstColumn("sld2", N::sld2));
}

} // namespace
} // namespace tovik::skinart
