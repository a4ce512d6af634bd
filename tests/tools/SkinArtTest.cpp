// SPDX-License-Identifier: GPL-3.0-or-later
#include "BitmapFile.h"
#include "Body.h"
#include "skin/Bitmap.h"
#include "SkinPictures.h"
#include "Stand.h"
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

/// What is painted from edge to edge, because it lies on nothing of a skin.
bool isWhole(const std::string& name) {
    return std::ranges::any_of(std::array{"scroller", "sabar", "eqwin", "eqslot", "eqmaster",
                                          "eqscale_left", "eqscale_right"},
                               [&name](std::string_view whole) { return name == whole; });
}

TEST(SkinArt, whatLiesOnAnotherPictureIsCutFromItsGround) {
    std::size_t cut = 0;
    for (const int scale : kScales) {
        for (const auto& [name, image] : pictures(scale)) {
            const int all = image.width() * image.height();
            if (isIndicator(name)) {
                // A symbol on nothing.
                EXPECT_GT(keyPixels(image), all / 3) << name << " at " << scale;
                EXPECT_LT(keyPixels(image), all * 9 / 10) << name << " at " << scale;
            } else if (isWhole(name)) {
                EXPECT_EQ(keyPixels(image), 0) << name << " at " << scale;
            } else {
                // At least the four corners.
                ++cut;
                EXPECT_GE(keyPixels(image), 4) << name << " at " << scale;
                EXPECT_LT(keyPixels(image), all * 19 / 20) << name << " at " << scale;
                EXPECT_TRUE(isKey(image.pixel(image.width() - 1, 0))) << name << " at " << scale;
            }
        }
    }
    EXPECT_EQ(cut, 2 * (119U - 8U - 7U));
}

TEST(SkinArt, noShapeIsMixedWithTheKeyColour) {
    // Smooth edges are mixed with our ground: a yellow fringe would be seen on every ground.
    const auto yellow = [](QRgb pixel) {
        return qRed(pixel) > 150 && qGreen(pixel) * 100 > qRed(pixel) * 85 && qBlue(pixel) < 60;
    };
    for (const int scale : kScales) {
        for (const auto& [name, image] : pictures(scale)) {
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QRgb pixel = image.pixel(x, y);
                    ASSERT_FALSE(yellow(pixel) && !isKey(pixel)) << name << " " << x << "," << y;
                }
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
                const std::uint32_t expected = isKey(pixel) ? 0 : pixel;
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

TEST(SkinArt, thePictureOfTheStartHasItsSize) {
    EXPECT_EQ(splashPicture(1).size(), QSize(300, 200));
    EXPECT_EQ(splashPicture(2).size(), QSize(600, 400));
}

} // namespace
} // namespace tovik::skinart
