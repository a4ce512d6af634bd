// SPDX-License-Identifier: GPL-3.0-or-later
#include "BitmapFile.h"
#include "Body.h"
#include "GlyphTable.h"
#include "PictureSet.h"
#include "skin/Bitmap.h"
#include "Stand.h"
#include "ui/GlyphText.h"
#include "ui/KeyColour.h"
#include "window/MainBindings.h"
#include "window/WindowPictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace tovik::skinart {
namespace {

using N = window::MainElement;

constexpr std::array kScales{1, 2};

/// All pictures by name, rendered once at each scale.
const std::map<std::string, QImage>& pictures(int scale) {
    static const auto render = [](int at) {
        std::map<std::string, QImage> all;
        for (const Drawings& set : {skinDrawings(), windowDrawings()}) {
            for (const Drawing& drawing : set) {
                all.emplace(drawing.name, rendered(drawing, at));
            }
        }
        return all;
    };
    static const std::map<int, std::map<std::string, QImage>> byScale{{1, render(1)},
                                                                      {2, render(2)}};
    return byScale.at(scale);
}

const QImage& picture(const std::string& name, int scale = 1) {
    return pictures(scale).at(name);
}

bool isKey(QRgb pixel) {
    return std::ranges::any_of(std::array{16, 24, 32}, [pixel](int depth) {
        const ui::Colour key = ui::keyColour(depth);
        return qRed(pixel) == key.red && qGreen(pixel) == key.green && qBlue(pixel) == key.blue;
    });
}

int keyPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += isKey(image.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

TEST(SkinArt, drawsTheFileOfEveryBindingForItsElement) {
    std::map<std::string, Spot> drawn;
    for (const Drawing& drawing : skinDrawings()) {
        EXPECT_TRUE(drawn.emplace(drawing.name, drawing.spot).second) << drawing.name;
    }
    EXPECT_EQ(drawn.size(), 107U);
    std::size_t files = 0;
    for (const window::Binding& binding : window::mainBindings()) {
        if (binding.file.empty()) {
            continue;
        }
        ++files;
        const auto found = drawn.find(std::string(binding.file));
        ASSERT_NE(found, drawn.end()) << binding.file;
        EXPECT_EQ(found->second.name, binding.to.name) << binding.file;
        EXPECT_EQ(found->second.index, binding.to.index) << binding.file;
    }
    EXPECT_EQ(files, 107U);
}

TEST(SkinArt, namesOfTheWindowsOwnPicturesAreNoFilesOfASkin) {
    std::set<std::string> names;
    for (const Drawing& drawing : skinDrawings()) {
        names.insert(drawing.name);
    }
    EXPECT_EQ(windowDrawings().size(), 12U);
    std::set<std::string> wanted;
    for (const window::WindowPicture& row : window::windowPictures()) {
        wanted.insert(std::string(row.name));
    }
    EXPECT_EQ(wanted.size(), windowDrawings().size());
    for (const Drawing& drawing : windowDrawings()) {
        EXPECT_TRUE(names.insert(drawing.name).second) << drawing.name;
        EXPECT_TRUE(wanted.contains(drawing.name)) << drawing.name;
    }
}

TEST(SkinArt, everyPictureFillsTheBoxOfItsElement) {
    std::size_t placed = 0;
    for (const Drawings& set : {skinDrawings(), windowDrawings()}) {
        for (const Drawing& drawing : set) {
            const ui::Box box = boxOf(drawing.spot);
            const QSize whole(static_cast<int>(box.width), static_cast<int>(box.height));
            if (!whole.isEmpty()) {
                ++placed;
                EXPECT_EQ(drawing.size, whole) << drawing.name;
            }
            for (const int scale : kScales) {
                EXPECT_EQ(picture(drawing.name, scale).size(), drawing.size * scale)
                    << drawing.name;
            }
        }
    }
    EXPECT_EQ(placed, 73U); // the rest goes to stores, which have no size
}

TEST(SkinArt, storedFacesAreAsLargeAsTheFaceTheyReplace) {
    for (const window::ButtonFace& face : window::buttonFaces()) {
        const QSizeF up = rectOf({face.up}).size();
        EXPECT_EQ(up, rectOf({face.down}).size());
        for (const Drawing& drawing : skinDrawings()) {
            if (drawing.spot.name == face.over.name && drawing.spot.index == face.over.index) {
                EXPECT_EQ(QSizeF(drawing.size), up) << drawing.name;
            }
        }
    }
    for (int digit = 1; digit < 10; ++digit) {
        EXPECT_EQ(picture(std::to_string(digit)).size(), picture("0").size());
    }
    EXPECT_EQ(picture("0").size(), QSize(14, 17));
}

TEST(SkinArt, noTwoPicturesAreEqual) {
    for (const int scale : kScales) {
        std::map<std::string, std::string> seen;
        for (const auto& [name, image] : pictures(scale)) {
            const auto [other, added] = seen.emplace(bitmapBytes(image), name);
            EXPECT_TRUE(added) << name << " looks like " << other->second;
        }
        EXPECT_EQ(seen.size(), 119U);
    }
}

/// How much two pictures of one size differ: the mean of the differences of their channels.
double difference(const QImage& one, const QImage& other) {
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                   std::abs(qBlue(a) - qBlue(b));
        }
    }
    return sum / 3 / one.width() / one.height();
}

TEST(SkinArt, theLooksOfAButtonCanBeToldApart) {
    constexpr double kVisible = 12;

    struct Pair {
        std::string one;
        std::string other;
    };

    std::vector<Pair> pairs;
    for (const char* button :
         {"prev", "play", "pause", "stop", "next", "file", "close", "min", "minmode"}) {
        const std::string stem = std::string("btn_") + button;
        pairs.push_back({stem + "_up", stem + "_down"});
        pairs.push_back({stem + "_up", stem + "_over"});
        pairs.push_back({stem + "_over", stem + "_down"});
    }
    for (const char* tab : {"mainbt", "eqbt", "plbt", "ripbt", "irtbt", "prebt"}) {
        const std::string stem = tab;
        pairs.push_back({stem, stem + "_down"});
        pairs.push_back({stem, stem + "_over"});
        pairs.push_back({stem + "_over", stem + "_down"});
    }
    for (const char* pair :
         {"btn_shuffle", "btn_loop", "btn_cfd", "btn_sld", "btn_eq", "btn_save"}) {
        const std::string stem = pair;
        pairs.push_back({stem + "_on", stem + "_off"});
    }
    for (const char* indicator : {"shuffle", "loop", "cfd", "sld"}) {
        pairs.push_back({indicator, std::string(indicator) + "2"});
    }
    for (const Pair& pair : pairs) {
        EXPECT_GT(difference(picture(pair.one), picture(pair.other)), kVisible)
            << pair.one << " and " << pair.other;
    }
    EXPECT_EQ(pairs.size(), 55U);
}

/// The lamps of the modes, which also stand over the list.
bool isIndicator(const std::string& name) {
    return std::ranges::any_of(
        std::array{"shuffle", "loop", "cfd", "sld"},
        [&name](std::string stem) { return name == stem || name == stem + "2"; });
}

TEST(SkinArt, onlyTheBodyAndTheIndicatorsHavePixelsOfTheKeyColour) {
    for (const int scale : kScales) {
        for (const auto& [name, image] : pictures(scale)) {
            if (isIndicator(name)) {
                // A symbol on nothing.
                const int all = image.width() * image.height();
                EXPECT_GT(keyPixels(image), all / 3) << name << " at " << scale;
                EXPECT_LT(keyPixels(image), all * 9 / 10) << name << " at " << scale;
            } else if (name != "main") {
                EXPECT_EQ(keyPixels(image), 0) << name << " at " << scale;
            }
        }
    }
}

TEST(SkinArt, theKeyColourIsWhatLiesOutsideTheOutline) {
    for (const int scale : kScales) {
        const QImage& body = picture("main", scale);
        const QPainterPath outline = bodyOutline();
        int outside = 0;
        for (int y = 0; y < body.height(); ++y) {
            for (int x = 0; x < body.width(); ++x) {
                const QPointF middle((x + 0.5) / scale, (y + 0.5) / scale);
                const bool key = isKey(body.pixel(x, y));
                outside += key ? 1 : 0;
                // Right on the outline a pixel may fall to either side.
                const double reach = 0.1;
                const QRectF spot(middle.x() - reach, middle.y() - reach, 2 * reach, 2 * reach);
                if (outline.contains(spot)) {
                    ASSERT_FALSE(key) << x << "," << y;
                } else if (!outline.intersects(spot)) {
                    ASSERT_TRUE(key) << x << "," << y;
                }
            }
        }
        EXPECT_TRUE(isKey(body.pixel(0, 0)));
        EXPECT_TRUE(isKey(body.pixel(body.width() - 1, body.height() - 1)));
        // The window keeps most of its rectangle, and is no rectangle.
        EXPECT_GT(outside, 1000 * scale * scale);
        EXPECT_LT(outside, 6000 * scale * scale);
    }
}

TEST(SkinArt, everyShownElementLiesInsideTheOutline) {
    const QImage& body = picture("main");
    for (const auto& place : window::mainLayout()) {
        if (place.name == N::mainIMG || place.kind == ui::ElementKind::Label) {
            continue;
        }
        for (std::size_t offset = 0; offset < place.count; ++offset) {
            const QRect box = rectOf({place.name, place.first + offset}).toRect();
            for (const QPoint corner :
                 {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
                if (!box.isEmpty() && place.name != N::Text4) {
                    EXPECT_FALSE(isKey(body.pixel(corner)))
                        << static_cast<int>(place.name) << " " << corner.x() << "," << corner.y();
                }
            }
        }
    }
}

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

TEST(SkinArt, everyCharacterStandsInItsCellAndLooksLikeNoOther) {
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

TEST(SkinArt, charactersStandWhereWordsTakeThem) {
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

TEST(SkinArt, aCharacterLeavesTheGapToTheNext) {
    const QImage& strip = picture("text");
    for (const Glyph& glyph : glyphs()) {
        for (int y = 0; y < kGlyphHeight; ++y) {
            EXPECT_EQ(strip.pixel(glyph.left + kGlyphWidth - 1, glyph.top + y),
                      strip.pixel(154, 17))
                << glyph.character;
        }
    }
}

double brightness(QRgb pixel) {
    return 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
}

double brightest(const QImage& image) {
    double most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            most = std::max(most, brightness(image.pixel(x, y)));
        }
    }
    return most;
}

TEST(SkinArt, theSecondStripIsDim) {
    EXPECT_GT(brightest(picture("text")), 2 * brightest(picture("text2")));
    EXPECT_GT(brightest(picture("text2")), 60);
}

TEST(SkinArt, digitsDifferClearly) {
    constexpr double kClear = 6;
    for (int one = 0; one < 10; ++one) {
        for (int other = one + 1; other < 10; ++other) {
            EXPECT_GT(difference(picture(std::to_string(one)), picture(std::to_string(other))),
                      kClear)
                << one << " and " << other;
        }
        EXPECT_GT(brightest(picture(std::to_string(one))), 180);
    }
}

TEST(SkinArt, whatTheNextDigitCoversIsEmpty) {
    const auto emptyFrom = [](const std::string& name, int left) {
        const QImage& image = picture(name);
        const QRgb ground = image.pixel(image.width() - 1, image.height() - 1);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = left; x < image.width(); ++x) {
                if (image.pixel(x, y) != ground) {
                    return false;
                }
            }
        }
        return true;
    };
    // The colon's neighbour begins at 66, the minus's at 32.
    EXPECT_TRUE(emptyFrom("dbldot", 6));
    EXPECT_TRUE(emptyFrom("dash", 12));
    EXPECT_FALSE(emptyFrom("dbldot", 1));
    EXPECT_FALSE(emptyFrom("dash", 3));
}

TEST(SkinArt, barsOfTheSpectrumAreBrightAgainstItsGround) {
    const QImage& tile = picture("sabar");
    EXPECT_EQ(tile.width(), 5); // the pitch of the bars
    for (int y = 0; y < tile.height(); ++y) {
        for (int x = 1; x < tile.width(); ++x) {
            EXPECT_GT(brightness(tile.pixel(x, y)), 60) << x << "," << y;
        }
    }
}

TEST(SkinArt, bitmapsReadBackAsTheyWereDrawn) {
    for (const auto& [name, image] : pictures(1)) {
        const ui::PixelImage read = skin::readBitmap(bitmapBytes(image));
        ASSERT_EQ(QSize(read.width, read.height), image.size()) << name;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                const bool hole = (name == "main" || isIndicator(name)) && isKey(pixel);
                const std::uint32_t expected = hole ? 0 : pixel;
                ASSERT_EQ(read.pixels.at(static_cast<std::size_t>(y * image.width() + x)), expected)
                    << name << " " << x << "," << y;
            }
        }
    }
}

TEST(SkinArt, drawingAgainGivesTheSameBytes) {
    for (const int scale : kScales) {
        std::size_t drawn = 0;
        for (const Drawings& set : {skinDrawings(), windowDrawings()}) {
            for (const Drawing& drawing : set) {
                ++drawn;
                EXPECT_EQ(bitmapBytes(rendered(drawing, scale)),
                          bitmapBytes(picture(drawing.name, scale)))
                    << drawing.name;
            }
        }
        EXPECT_EQ(drawn, 119U);
    }
}

TEST(SkinArt, theIconIsTransparentRoundItsEdge) {
    for (const int size : {16, 48, 256}) {
        const QImage icon = programIcon(size);
        EXPECT_EQ(icon.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255);
    }
}

TEST(SkinArt, thePictureOfTheStartHasItsSize) {
    EXPECT_EQ(splashPicture(1).size(), QSize(300, 200));
    EXPECT_EQ(splashPicture(2).size(), QSize(600, 400));
}

} // namespace
} // namespace tovik::skinart
