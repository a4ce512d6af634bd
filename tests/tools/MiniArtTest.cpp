// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the mini window.
#include "Badge.h"
#include "MiniBody.h"
#include "PictureSet.h"
#include "SkinPictures.h"
#include "window/MiniSkin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace tovik::skinart {
namespace {

using window::MiniElement;

std::map<std::string, QImage> miniPictures(int scale) {
    std::map<std::string, QImage> all;
    for (const Drawings& set : {miniSkinDrawings(), miniWindowDrawings()}) {
        for (const Drawing& drawing : set) {
            EXPECT_TRUE(all.emplace(drawing.name, rendered(drawing, scale)).second) << drawing.name;
        }
    }
    return all;
}

TEST(MiniArt, drawsEveryFileAndEveryPictureOfTheWindow) {
    std::set<std::string> files;
    for (const Drawing& drawing : miniSkinDrawings()) {
        files.insert(drawing.name);
    }
    EXPECT_EQ(files.size(), 17U);
    for (const window::MiniPicture& row : window::miniBindings()) {
        EXPECT_TRUE(files.contains(std::string(row.name))) << row.name;
    }
    std::set<std::string> own;
    for (const Drawing& drawing : miniWindowDrawings()) {
        own.insert(drawing.name);
    }
    EXPECT_EQ(own.size(), 12U);
    EXPECT_EQ(window::miniWindowPictures().size(), 12U);
    for (const window::MiniPicture& row : window::miniWindowPictures()) {
        EXPECT_TRUE(own.contains(std::string(row.name))) << row.name;
    }
}

TEST(MiniArt, everyPictureFillsItsElement) {
    std::size_t placed = 0;
    for (const int scale : {1, 2}) {
        const auto pictures = miniPictures(scale);
        for (const auto& rows : {window::miniBindings(), window::miniWindowPictures()}) {
            for (const window::MiniPicture& row : rows) {
                const QSize whole = miniRectOf(row.element, row.index).size().toSize();
                if (!whole.isEmpty()) {
                    ++placed;
                    EXPECT_EQ(pictures.at(std::string(row.name)).size(), whole * scale) << row.name;
                }
            }
        }
        // What was played is cut out of a picture as long as the bar.
        EXPECT_EQ(pictures.at("mini_track").size(), pictures.at("mini_posbar").size());
        EXPECT_EQ(pictures.at("mini_volbar").size(), QSize(36, 59) * scale);
        EXPECT_EQ(pictures.at("mini_thumb").size(), QSize(13, 9) * scale);
        EXPECT_EQ(pictures.at("minmode_0").size(), QSize(10, 15) * scale);
    }
    EXPECT_EQ(placed, 26U);
}

TEST(MiniArt, noTwoPicturesAreEqual) {
    std::set<QByteArray> seen;
    for (const auto& [name, image] : miniPictures(1)) {
        EXPECT_TRUE(seen.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()),
                                           image.sizeInBytes()))
                        .second)
            << name;
    }
    EXPECT_EQ(seen.size(), 29U);
}

TEST(MiniArt, theBodyIsCutAlongItsOutlineAndWhatLiesOnItLeavesItFree) {
    for (const int scale : {1, 2}) {
        for (const auto& [name, image] : miniPictures(scale)) {
            SCOPED_TRACE(name + " at " + std::to_string(scale));
            const int all = image.width() * image.height();
            const int key = keyPixels(image);
            if (name == "minmode_main") {
                EXPECT_GT(key, 1500 * scale * scale);
                EXPECT_LT(key, 5000 * scale * scale);
                EXPECT_TRUE(isKey(image.pixel(0, 0)));
            } else if (image.size() == QSize(10, 15) * scale) {
                // Of a digit only its strokes are there: the glass shows all around them.
                EXPECT_GT(key, all / 10);
                EXPECT_LT(key, all);
            } else {
                // Its round corners show what it lies on.
                EXPECT_LT(key, all / 4);
                EXPECT_GT(key, 0);
                EXPECT_TRUE(isKey(image.pixel(0, 0)));
                EXPECT_FALSE(isKey(image.pixel(image.width() / 2, image.height() / 2)));
            }
        }
    }
}

/// One light and one palette for both windows: the body of the one is the metal of the other.
TEST(MiniArt, bothWindowsAreMadeOfTheSameMetal) {
    const auto bodyOf = [](const Drawings& all, const std::string& name) {
        return rendered(*std::ranges::find(all, name, &Drawing::name), 1);
    };
    const QImage mini = bodyOf(miniSkinDrawings(), "minmode_main");
    const QImage main = bodyOf(skinDrawings(), "main");
    const auto brightness = [](const QImage& image, int x, double part) {
        return qGray(image.pixel(x, static_cast<int>(image.height() * part)));
    };
    // Light from above, as dark below: beside the deck of the one and the card of the other.
    for (const double part : {0.55, 0.8}) {
        EXPECT_NEAR(brightness(mini, 150, part), brightness(main, 11, part), 10) << part;
    }
    EXPECT_GT(brightness(mini, 150, 0.5), brightness(mini, 150, 0.8) + 8);
    // Brushed: some rows are brighter than the one above them, which a plain shade never is.
    int brighter = 0;
    for (int y = 20; y < 58; ++y) {
        brighter += qGreen(mini.pixel(157, y + 1)) > qGreen(mini.pixel(157, y)) ? 1 : 0;
    }
    EXPECT_GT(brighter, 5);
}

TEST(MiniArt, everyShownElementLiesInsideTheOutline) {
    const QPainterPath outline = miniOutline();
    for (const auto& place : window::miniLayout()) {
        for (std::size_t i = 0; i < place.count; ++i) {
            const QRectF box = miniRectOf(place.name, place.first + i);
            if (place.name != MiniElement::picBackground && !box.isEmpty()) {
                EXPECT_TRUE(outline.contains(box.adjusted(1, 1, -1, -1)))
                    << static_cast<int>(place.name) << " " << i;
            }
        }
    }
}

TEST(MiniArt, fourIconsOfTheTrayCanBeToldApart) {
    std::vector<QImage> styles;
    for (int style = 1; style <= 4; ++style) {
        styles.push_back(trayIcon(style, 22));
        EXPECT_EQ(styles.back().size(), QSize(22, 22));
        EXPECT_EQ(qAlpha(styles.back().pixel(0, 0)), 0) << style;
        for (std::size_t other = 0; other + 1 < styles.size(); ++other) {
            EXPECT_NE(styles.back(), styles[other]) << style;
        }
    }
}

} // namespace
} // namespace tovik::skinart
