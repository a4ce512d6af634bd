// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ui/BlockText.h"
#include "ui/cMemDC.h"
#include "ui/Mnemonic.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using testing::ElementsAre;

constexpr Colour kRed{255, 0, 0};
constexpr Colour kLight{255, 255, 255};
constexpr Colour kShadow{128, 128, 128};

cMemDC blackSurface(int width, int height) {
    cMemDC surface;
    surface.Init(width, height);
    surface.BackColor = Colour{};
    surface.Cls();
    return surface;
}

/// The red parts of a row or, letter by letter, what stands for known colours.
std::string row(const cMemDC& surface, int y) {
    std::string text;
    for (int x = 0; x < surface.Width(); ++x) {
        const Colour colour = surface.GetPixel(x, y).value();
        text += colour == kRed ? 'r' : colour == kLight ? 'l' : colour == kShadow ? 's' : '.';
    }
    return text;
}

std::vector<std::string> rows(const cMemDC& surface) {
    std::vector<std::string> all;
    for (int y = 0; y < surface.Height(); ++y) {
        all.push_back(row(surface, y));
    }
    return all;
}

TEST(MemDCDrawing, nothingIsDrawnOutsideTheClip) {
    cMemDC surface = blackSurface(4, 3);
    surface.SetClipRect(PixelBox{1, 1, 3, 9});
    surface.FillRect(-9, -9, 9, 9, kRed);
    EXPECT_THAT(rows(surface), ElementsAre("....", ".rr.", ".rr."));
    surface.SetClipRect(std::nullopt);
    surface.BitBlt(0, 0, 1, 1, PixelImage{1, 1, {opaquePixel(kLight)}});
    EXPECT_EQ(row(surface, 0), "l...");
}

TEST(MemDCDrawing, edgesHaveLightAboveWhenRaisedAndBelowWhenSunken) {
    cMemDC surface = blackSurface(4, 3);
    surface.DrawEdge({0, 0, 4, 3}, cMemDC::kRaisedInner);
    EXPECT_THAT(rows(surface), ElementsAre("llls", "l..s", "ssss"));
    surface = blackSurface(4, 3);
    surface.DrawEdge({0, 0, 4, 3}, cMemDC::kSunkenOuter, cMemDC::kWholeEdge);
    EXPECT_THAT(rows(surface), ElementsAre("sssl", "s..l", "llll"));
    surface = blackSurface(4, 3);
    surface.DrawEdge({0, 0, 4, 3}, cMemDC::kSunkenOuter, cMemDC::kEdgeTop | cMemDC::kEdgeBottom);
    EXPECT_THAT(rows(surface), ElementsAre("ssss", "....", "llll"));
}

TEST(MemDCDrawing, anEdgeOfTwoKindsHasTwoRings) {
    cMemDC surface = blackSurface(5, 5);
    surface.DrawEdge({0, 0, 5, 5}, cMemDC::kRaisedOuter | cMemDC::kSunkenInner);
    EXPECT_THAT(rows(surface), ElementsAre("lllls", "lssls", "ls.ls", "lllls", "sssss"));
}

TEST(MemDCDrawing, framesRectanglesAndLines) {
    cMemDC surface = blackSurface(4, 3);
    surface.FrameRect({0, 0, 4, 3}, kRed);
    EXPECT_THAT(rows(surface), ElementsAre("rrrr", "r..r", "rrrr"));
    surface.Rectangle({1, 0, 4, 3}, kLight, kShadow);
    EXPECT_THAT(rows(surface), ElementsAre("rsss", "rsls", "rsss"));
    surface = blackSurface(4, 3);
    surface.DrawLine(0, 0, 3, 3, kRed);
    EXPECT_THAT(rows(surface), ElementsAre("r...", ".r..", "..r."));
    surface.DrawLine(3, 0, -2, 0, kLight);
    EXPECT_EQ(row(surface, 0), "llll");
}

TEST(MemDCDrawing, gradientsReachBothColours) {
    cMemDC surface = blackSurface(1, 3);
    surface.FillGradient({0, 0, 1, 3}, {0, 100, 200}, {100, 0, 200});
    EXPECT_EQ(surface.GetPixel(0, 0), (Colour{0, 100, 200}));
    EXPECT_EQ(surface.GetPixel(0, 1), (Colour{50, 50, 200}));
    EXPECT_EQ(surface.GetPixel(0, 2), (Colour{100, 0, 200}));
    cMemDC across = blackSurface(2, 1);
    across.FillGradient({0, 0, 2, 1}, {}, {9, 9, 9}, false);
    EXPECT_EQ(across.GetPixel(0, 0), Colour{});
    EXPECT_EQ(across.GetPixel(1, 0), (Colour{9, 9, 9}));
}

TEST(MemDCDrawing, ellipsesTouchTheirSides) {
    cMemDC surface = blackSurface(5, 5);
    surface.DrawEllipse({0, 0, 5, 5}, kRed);
    EXPECT_THAT(rows(surface), ElementsAre(".rrr.", "rrrrr", "rrrrr", "rrrrr", ".rrr."));
}

TEST(MemDCDrawing, picturesAreLaidOverByTheirAlpha) {
    const PixelImage source{3, 1, {0, 0x80800000, 0xFF0000FF}};
    cMemDC surface(PixelImage{3, 1, {0xFF00FF00, 0xFF00FF00, 0xFF00FF00}});
    surface.TransBlt(0, 0, 3, 1, source);
    EXPECT_THAT(surface.Image().pixels, ElementsAre(0xFF00FF00, 0xFF807F00, 0xFF0000FF));
}

TEST(MemDCDrawing, aDisabledPictureIsItsShapeInShadowAndLight) {
    const PixelImage source{2, 2, {0xFF00FF00, 0, 0, 0}};
    cMemDC surface = blackSurface(3, 3);
    surface.DisabledBlt(0, 0, 2, 2, source);
    EXPECT_THAT(rows(surface), ElementsAre("s..", ".l.", "..."));
}

TEST(MemDCDrawing, tilesBeginWhereTheyAreTold) {
    const PixelImage source{2, 1, {opaquePixel(kRed), opaquePixel(kLight)}};
    cMemDC surface = blackSurface(5, 2);
    surface.TileBlt({0, 0, 5, 1}, source);
    surface.TileBlt({1, 1, 5, 2}, source, 2, -7);
    EXPECT_THAT(rows(surface), ElementsAre("rlrlr", ".lrlr"));
    surface.TileBlt({0, 0, 5, 2}, PixelImage{});
    EXPECT_EQ(row(surface, 0), "rlrlr");
}

TEST(MemDCDrawing, numbersBecomeColours) {
    EXPECT_EQ(cMemDC::TranslateColor(12615808), (Colour{128, 128, 192}));
    EXPECT_EQ(cMemDC::TranslateColor(8388608), (Colour{0, 0, 128}));
    const auto system = [](int number) {
        return number == 16 ? std::optional(kRed) : std::nullopt;
    };
    EXPECT_EQ(cMemDC::TranslateColor(-2147483632, system), kRed);
    EXPECT_EQ(cMemDC::TranslateColor(-2147483633, system), Colour{});
    EXPECT_EQ(cMemDC::TranslateColor(-2147483632), Colour{});
}

TEST(MemDCDrawing, boxesAreNormalized) {
    EXPECT_EQ(cMemDC::NormalizeRect({5, 1, 2, -3}), (PixelBox{2, -3, 5, 1}));
}

struct MemDCText : testing::Test {
    cMemDC textSurface() {
        cMemDC surface = blackSurface(40, 30);
        surface.Engine = &engine;
        surface.ForeColor = kRed;
        return surface;
    }

    BlockText engine;
};

TEST_F(MemDCText, itIsPlacedByTheFlags) {
    cMemDC surface = textSurface();
    EXPECT_EQ(surface.DrawText("ab", {2, 0, 38, 20}, 293), 10);
    surface.DrawText("ab", {2, 0, 38, 20}, 292);
    surface.DrawText("ab", {2, 0, 38, 20}, 256);
    surface.DrawText("ab", {2, 0, 38, 20}, 292 | cMemDC::kTextRight);
    surface.DrawText("ab", {2, 0, 38, 20}, cMemDC::kTextSingleLine | cMemDC::kTextBottom);
    ASSERT_EQ(engine.lines.size(), 5U);
    EXPECT_EQ(std::pair(engine.lines[0].left, engine.lines[0].top), std::pair(14, 5));
    EXPECT_EQ(std::pair(engine.lines[1].left, engine.lines[1].top), std::pair(2, 5));
    EXPECT_EQ(std::pair(engine.lines[2].left, engine.lines[2].top), std::pair(2, 0));
    EXPECT_EQ(std::pair(engine.lines[3].left, engine.lines[3].top), std::pair(26, 5));
    EXPECT_EQ(engine.lines[4].top, 10);
}

TEST_F(MemDCText, itIsCutAtTheBoxUnlessToldOtherwise) {
    cMemDC surface = textSurface();
    surface.DrawText("abc", {0, 0, 9, 10}, cMemDC::kTextSingleLine);
    EXPECT_EQ(row(surface, 5).find_last_of('r'), 8U);
    surface = textSurface();
    surface.DrawText("abc", {0, 0, 9, 10}, cMemDC::kTextSingleLine | cMemDC::kTextNoClip);
    EXPECT_EQ(row(surface, 5).find_last_of('r'), 17U);
}

TEST_F(MemDCText, mnemonicsAreUnderlinedAndLinesStandBelowEachOther) {
    cMemDC surface = textSurface();
    EXPECT_EQ(surface.DrawText("A&&&b\nc", {0, 0, 40, 30}, 0), 20);
    ASSERT_EQ(engine.lines.size(), 2U);
    EXPECT_EQ(engine.lines[0].text, "A&b");
    EXPECT_EQ(engine.lines[0].underlined, 2U);
    EXPECT_EQ(std::pair(engine.lines[1].text, engine.lines[1].top),
              std::pair(std::string("c"), 10));
    surface.DrawText("&x", {0, 0, 40, 30},
                     cMemDC::kTextSingleLine | cMemDC::kTextNoPrefix | cMemDC::kTextRightToLeft);
    EXPECT_EQ(engine.lines[2].text, "&x");
    EXPECT_TRUE(engine.lines[2].rightToLeft);
}

TEST_F(MemDCText, itMayStandOnABack) {
    cMemDC surface = textSurface();
    surface.BackStyle = true;
    surface.BackColor = kLight;
    surface.ForeColor = kLight;
    surface.DrawText("a", {0, 0, 40, 10}, cMemDC::kTextSingleLine);
    EXPECT_EQ(row(surface, 0).substr(0, 7), "llllll.");
}

TEST_F(MemDCText, itsSizeIsTheFonts) {
    cMemDC surface = textSurface();
    surface.Font.pixelHeight = 20;
    EXPECT_EQ(surface.TextWidth("ab"), 24);
    EXPECT_EQ(surface.TextHeight("ab"), 20);
    EXPECT_EQ(surface.FontHeight(), 20);
    surface.Engine = nullptr;
    EXPECT_EQ(surface.TextWidth("ab"), 0);
    EXPECT_EQ(surface.DrawText("ab", {0, 0, 40, 30}, 0), 0);
}

TEST(Mnemonic, aLoneMarkAtTheEndIsDropped) {
    EXPECT_EQ(mnemonicOf("ab&").text, "ab");
    EXPECT_EQ(mnemonicOf("&&").text, "&");
    EXPECT_FALSE(mnemonicOf("&&").letter);
    EXPECT_EQ(mnemonicOf("&a&b").letter, 1U);
}

} // namespace
} // namespace tovik::ui
