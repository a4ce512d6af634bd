// SPDX-License-Identifier: GPL-3.0-or-later
// Small shapes on a fine screen, and parts that have to fit what they lie on.
#include "GlyphTable.h"
#include "SkinPictures.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tovik::skinart {
namespace {

using N = window::MainElement;

constexpr std::array kFineScales{2, 3, 4};

QImage enlarged(const QImage& image, int scale) {
    return image.scaled(image.size() * scale, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

/// How many of the pixels that the plain picture enlarged has set are something else.
int pixelsApart(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
        }
    }
    return count;
}

/// Neither the key colour nor the ink.
bool isBetween(QRgb pixel, QRgb ink) {
    return !isKey(pixel) && pixel != ink;
}

const Glyph& glyphOf(std::string_view character) {
    return *std::ranges::find(glyphs(), character, &Glyph::character);
}

TEST(SkinFine, slopesOfCharactersAreSmoothAtEveryScale) {
    for (const int scale : kFineScales) {
        for (const Drawing& drawing : skinDrawings()) {
            if (drawing.name != "text" && drawing.name != "text2") {
                continue;
            }
            const QImage fine = rendered(drawing, scale);
            const QImage& plain = picture(drawing.name);
            const QRgb ink = plain.pixel(20, 0); // the corner of "e"
            for (const std::string_view character :
                 {"a", "k", "n", "s", "x", "/", "\\", "%", "4"}) {
                const Glyph& glyph = glyphOf(character);
                const QRect cell(glyph.left, glyph.top, kGlyphWidth, kGlyphHeight);
                const QImage seen = fine.copy(QRect(cell.topLeft() * scale, cell.size() * scale));
                int between = 0;
                for (int y = 0; y < seen.height(); ++y) {
                    for (int x = 0; x < seen.width(); ++x) {
                        between += isBetween(seen.pixel(x, y), ink) ? 1 : 0;
                    }
                }
                EXPECT_GT(between, scale) << character << " at " << scale;
                EXPECT_GT(pixelsApart(seen, enlarged(plain.copy(cell), scale)), 2 * scale)
                    << character << " at " << scale;
            }
        }
    }
}

TEST(SkinFine, straightStrokesOfCharactersKeepTheirEdges) {
    for (const int scale : kFineScales) {
        for (const Drawing& drawing : skinDrawings()) {
            if (drawing.name != "text") {
                continue;
            }
            const QImage fine = rendered(drawing, scale);
            const QRgb ink = picture("text").pixel(20, 0);
            const Glyph& upright = glyphOf("l");
            for (int y = scale; y < 4 * scale; ++y) {
                for (int x = 0; x < 3 * scale; ++x) {
                    const QRgb pixel = fine.pixel(upright.left * scale + x, y);
                    EXPECT_TRUE(x < scale ? pixel == ink : isKey(pixel)) << x << "," << y;
                }
            }
        }
    }
}

TEST(SkinFine, everyPixelOfACharacterIsInItsOutline) {
    for (const Drawing& drawing : skinDrawings()) {
        if (drawing.name != "text") {
            continue;
        }
        constexpr int kScale = 3;
        const QImage fine = rendered(drawing, kScale);
        const QRgb ink = picture("text").pixel(20, 0);
        int set = 0;
        for (const Glyph& glyph : glyphs()) {
            const PixelRows rows = pixelsOf(glyph);
            for (std::size_t y = 0; y < rows.size(); ++y) {
                for (std::size_t x = 0; x < rows.at(y).size(); ++x) {
                    const QPoint middle((glyph.left + static_cast<int>(x)) * kScale + kScale / 2,
                                        (glyph.top + static_cast<int>(y)) * kScale + kScale / 2);
                    const QRgb pixel = fine.pixel(middle);
                    if (rows.at(y).at(x) == 'X') {
                        ++set;
                        EXPECT_EQ(pixel, ink) << glyph.character << " " << x << "," << y;
                    } else {
                        // A slope runs through the middle at most.
                        EXPECT_TRUE(isKey(pixel) || brightness(pixel) < 0.6 * brightness(ink) + 20)
                            << glyph.character << " " << x << "," << y;
                    }
                }
            }
        }
        EXPECT_GT(set, 500);
    }
}

TEST(SkinFine, lampsAreTheSymbolsOfTheirButtons) {
    const std::array<std::string, 4> stems{"shuffle", "loop", "cfd", "sld"};
    std::size_t seen = 0;
    for (const int scale : kFineScales) {
        for (const Drawing& drawing : skinDrawings()) {
            if (std::ranges::find(stems, drawing.name) == stems.end()) {
                continue;
            }
            ++seen;
            const QImage fine = rendered(drawing, scale);
            EXPECT_GT(pixelsApart(fine, enlarged(picture(drawing.name), scale)), 10 * scale)
                << drawing.name << " at " << scale;
            int lit = 0;
            for (int y = 0; y < fine.height(); ++y) {
                for (int x = 0; x < fine.width(); ++x) {
                    lit += brightness(fine.pixel(x, y)) > 100 && !isKey(fine.pixel(x, y)) ? 1 : 0;
                }
            }
            // As much light as the plain one, within a third or so.
            int plain = 0;
            for (int y = 0; y < drawing.size.height(); ++y) {
                for (int x = 0; x < drawing.size.width(); ++x) {
                    plain += isKey(picture(drawing.name).pixel(x, y)) ? 0 : 1;
                }
            }
            EXPECT_NEAR(lit / double(scale * scale), plain, 0.4 * plain) << drawing.name;
        }
    }
    EXPECT_EQ(seen, stems.size() * kFineScales.size());
}

TEST(SkinFit, thePartsOfTheScrollBarLieInOneDarkChannel) {
    constexpr int kPart = 13;
    for (const int scale : kScales) {
        const QImage& bar = picture("scroller", scale);
        const int track = 2 * kPart * scale;
        const int last = bar.height() - 1;
        for (int x = 0; x < kPart * scale; ++x) {
            const QRgb channel = bar.pixel(track + x, 0);
            EXPECT_LT(brightness(channel), 60) << x;
            for (int y = 0; y <= last; ++y) {
                ASSERT_EQ(bar.pixel(track + x, y), channel) << x << "," << y;
            }
        }
        // Where a face leaves its corners free, the channel is seen.
        for (const int part : {0, 1, 3, 4, 5, 6}) {
            const int left = part * kPart * scale;
            const int right = left + kPart * scale - 1;
            EXPECT_EQ(bar.pixel(left, 0), bar.pixel(track, 0)) << part;
            EXPECT_EQ(bar.pixel(right, 0), bar.pixel(track + kPart * scale - 1, 0)) << part;
        }
    }
}

TEST(SkinFit, theFoldButtonStandsInTheMiddleOfTheOpenListsHeading) {
    constexpr int kScale = 2;
    const QImage& body = picture("main", kScale);
    // The heading is the bright part of a column of the body where nothing else lies.
    double first = -1;
    double last = -1;
    for (int y = 40 * kScale; y < 70 * kScale; ++y) {
        if (brightness(body.pixel(400 * kScale, y)) > 140) {
            first = first < 0 ? y : first;
            last = y + 1;
        }
    }
    const QImage& face = picture("qpl_col", kScale);
    double top = -1;
    double bottom = -1;
    for (int y = 0; y < face.height(); ++y) {
        if (!isKey(face.pixel(face.width() / 2, y))) {
            top = top < 0 ? y : top;
            bottom = y + 1;
        }
    }
    constexpr double kPlace = 46; // where it stands with the list open
    EXPECT_NEAR((first + last) / 2 / kScale, kPlace + (top + bottom) / 2 / kScale, 0.8);
    EXPECT_GE(kPlace + top / kScale, first / kScale + 2);
    EXPECT_LE(kPlace + bottom / kScale, last / kScale - 2);
    EXPECT_LE(last / kScale, 60) << "where the list begins";
}

TEST(SkinFit, theDeckHasAnEdgeRightBelowTheOpenList) {
    constexpr int kListEnd = 262;
    const QImage& body = picture("main");
    for (int x = 288; x < 450; ++x) {
        EXPECT_GT(brightness(body.pixel(x, kListEnd + 2)), brightness(body.pixel(x, kListEnd + 1)) + 20)
            << x;
    }
}

TEST(SkinFit, cardsAreLightUpToTheirEdgeSoThatTheirWordsHaveRoom) {
    for (const std::string name : {"poswin", "volwin", "balwin", "infowin", "plwin"}) {
        const QImage& card = picture(name);
        for (int y = 6; y < card.height() - 6; ++y) {
            EXPECT_GT(brightness(card.pixel(0, y)), 150) << name << " " << y;
        }
        for (int x = 6; x < card.width() - 6; ++x) {
            EXPECT_GT(brightness(card.pixel(x, 0)), 150) << name << " " << x;
        }
    }
}

TEST(SkinFit, theFillOfTheVolumeHasNoSteps) {
    constexpr int kScale = 2;
    const QImage& fill = picture("volfill", kScale);
    const int row = (2 + 6 * 3 + 1) * kScale; // in the last and longest bar
    for (int x = 4; x < fill.width() - 4; ++x) {
        const QRgb here = fill.pixel(x, row);
        const QRgb next = fill.pixel(x + 1, row);
        EXPECT_LE(std::abs(qRed(here) - qRed(next)) + std::abs(qGreen(here) - qGreen(next)) +
                      std::abs(qBlue(here) - qBlue(next)),
                  3)
            << x;
    }
}

} // namespace
} // namespace tovik::skinart
