// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/MenuMessages.h"
#include "MenusRig.h"
#include "support/ui/BlockText.h"
#include "support/ui/Contrast.h"

#include <gmock/gmock.h>

namespace tovik::menus {
namespace {

using ui::Colour;

constexpr Colour kHighlight{128, 128, 192};
constexpr Colour kImage{1, 200, 3};
constexpr Colour kMark{4, 200, 6};
constexpr int kColumn = 20;

/// Every image is a full square, every mark one in another colour.
class SquareImages final : public MenuImages {
public:
    [[nodiscard]] int indexOf(std::string_view key) const override {
        return key == "disk" ? 3 : -1;
    }

    [[nodiscard]] ui::PixelImage image(int /*index*/, int side, Colour /*ink*/) const override {
        return square(side, kImage);
    }

    [[nodiscard]] ui::PixelImage mark(MenuMark mark, int side, Colour /*ink*/) const override {
        marks.push_back(mark);
        return square(side, kMark);
    }

    mutable std::vector<MenuMark> marks;

private:
    static ui::PixelImage square(int side, Colour colour) {
        ui::cMemDC surface;
        surface.Init(side, side);
        surface.FillRect(0, 0, side, side, colour);
        return surface.DetachBitmap();
    }
};

struct MenuDrawing : testing::Test, MenusRig {
    MenuDrawing() {
        menus.ImageList = &images;
        menus.ForeColor = 0;
    }

    MeasureItem measure(std::string_view key, double scale = 1) {
        MeasureItem record{.id = menus.ItemID(at(key)), .scale = scale, .engine = &engine};
        EXPECT_EQ(window.send({ui::messages::kMeasureItem, 0, messageParameter(record)}), 1);
        return record;
    }

    /// Draws an item in the room it asks for; the surface stays in `surface`.
    void draw(std::string_view key, bool selected = false, double scale = 1) {
        const MeasureItem room = measure(key, scale);
        surface.Init(room.width, room.height);
        surface.Engine = &engine;
        DrawItem record{.id = menus.ItemID(at(key)),
                        .scale = scale,
                        .surface = &surface,
                        .box = {0, 0, room.width, room.height},
                        .menuHeight = room.height,
                        .selected = selected};
        EXPECT_EQ(window.send({ui::messages::kDrawItem, 0, messageParameter(record)}), 1);
        for (const std::uint32_t pixel : surface.Image().pixels) {
            ASSERT_FALSE(ui::isTransparent(pixel));
        }
    }

    [[nodiscard]] Colour pixel(int x, int y) const { return surface.GetPixel(x, y).value(); }

    SquareImages images;
    ui::BlockText engine;
    ui::cMemDC surface;
};

TEST_F(MenuDrawing, anItemAsksForItsColumns) {
    EXPECT_EQ(measure("open").height, 22);
    EXPECT_EQ(measure("bar").height, 8);
    const int bare = measure("save").width;
    EXPECT_EQ(bare, measure("open").width) << "the mark of a mnemonic takes no room";
    menus.ItemKeyAccel(at("open"), "Ctrl+O");
    EXPECT_EQ(measure("save").width, bare + 22 + 6 * 6) << "the column is as wide for all";
    menus.ItemVisible(at("open"), false);
    EXPECT_EQ(measure("save").width, bare);
    EXPECT_EQ(measure("open", 2).height, 44);
    EXPECT_EQ(measure("save", 2).width, 2 * measure("save").width)
        << "the font, too, has the scale";
    menus.Font.pixelHeight = 40;
    EXPECT_EQ(measure("save").height, 48);
}

TEST_F(MenuDrawing, captionAndAcceleratorStandInTheirColumns) {
    menus.ItemKeyAccel(at("open"), "F1");
    menus.ItemKeyAccel(at("save"), "Ctrl+S");
    draw("open");
    ASSERT_EQ(engine.lines.size(), 2U);
    EXPECT_EQ(engine.lines[0].text, "Open");
    EXPECT_EQ(engine.lines[0].underlined, 0U);
    EXPECT_EQ(engine.lines[0].left, kColumn + 7);
    EXPECT_EQ(engine.lines[0].top, 6);
    EXPECT_EQ(engine.lines[1].text, "F1");
    EXPECT_EQ(engine.lines[1].left, surface.Width() - 18 - 36);
    EXPECT_EQ(pixel(kColumn + 8, 11), Colour{});
}

TEST_F(MenuDrawing, aFixedKeyShowsUntilThereIsAnAccelerator) {
    menus.ItemFixedKey(at("open"), "Z");
    draw("open");
    EXPECT_EQ(engine.lines.back().text, "Z");
    menus.ItemKeyAccel(at("open"), "F1");
    draw("open");
    EXPECT_EQ(engine.lines.back().text, "F1");
    menus.ItemKeyAccel(at("open"), "");
    menus.ItemKeyAccel(at("save"), "Z");
    draw("open");
    EXPECT_EQ(engine.lines.back().text, "") << "the key is another's by now";
}

TEST_F(MenuDrawing, theSelectedItemStandsOnTheHighlight) {
    draw("open");
    EXPECT_NE(pixel(kColumn + 1, 1), kHighlight);
    draw("open", true);
    EXPECT_EQ(pixel(kColumn, 0), kHighlight);
    EXPECT_EQ(pixel(surface.Width() - 1, 21), kHighlight);
    EXPECT_NE(pixel(kColumn - 1, 11), kHighlight);
    EXPECT_EQ(pixel(kColumn + 8, 11), (Colour{10, 10, 30}));
    menus.ItemEnabled(at("open"), false);
    draw("open", true);
    EXPECT_NE(pixel(kColumn, 0), kHighlight) << "what is disabled is not offered";
}

TEST_F(MenuDrawing, theColumnOfImagesIsOfTheBackColour) {
    draw("open");
    const Colour column = pixel(10, 21);
    EXPECT_EQ(column, (Colour{0, 0, 128}));
    EXPECT_EQ(pixel(kColumn - 1, 21), column);
    EXPECT_GT(pixel(kColumn, 21).red, 200);
}

TEST_F(MenuDrawing, imagesAreRaisedWhenSelectedAndSunkenWhenChecked) {
    menus.ItemImage(at("open"), "disk");
    draw("open");
    EXPECT_EQ(pixel(10, 11), kImage);
    EXPECT_EQ(pixel(2, 3), kImage);
    EXPECT_NE(pixel(1, 3), kImage);
    draw("open", true);
    EXPECT_GT(pixel(0, 11).red, pixel(kColumn - 1, 11).red) << "light from the left: raised";
    menus.ItemChecked(at("open"), true);
    draw("open");
    EXPECT_LT(pixel(0, 11).red, pixel(kColumn - 1, 11).red) << "sunken";
    EXPECT_EQ(pixel(10, 11), kImage);
    EXPECT_THAT(images.marks, testing::IsEmpty());
}

TEST_F(MenuDrawing, theColumnOfASelectedItemIsRaisedAlsoWithoutAnImage) {
    draw("open");
    EXPECT_EQ(pixel(0, 11), pixel(kColumn - 1, 11));
    draw("open", true);
    EXPECT_GT(pixel(0, 11).red, pixel(kColumn - 1, 11).red);
    menus.ItemEnabled(at("open"), false);
    draw("open", true);
    EXPECT_EQ(pixel(0, 11), pixel(kColumn - 1, 11));
}

TEST_F(MenuDrawing, aCheckedItemWithoutAnImageBearsItsMark) {
    menus.ItemChecked(at("open"), true);
    draw("open");
    EXPECT_EQ(pixel(10, 11), kMark);
    menus.ItemCheckedStyle(at("open"), CheckedStyle::Radio);
    draw("open");
    EXPECT_THAT(images.marks, testing::ElementsAre(MenuMark::Check, MenuMark::Radio));
}

TEST_F(MenuDrawing, disabledItemsArePale) {
    menus.ItemImage(at("open"), "disk");
    menus.ItemEnabled(at("open"), false);
    draw("open");
    EXPECT_NE(pixel(10, 11), kImage);
    EXPECT_EQ(pixel(kColumn + 8, 11), ui::cMemDC::TranslateColor(menus.DisabledForeColor));
}

TEST_F(MenuDrawing, aSeparatorIsTwoLinesAtTheMiddle) {
    menus.SystemColour = [](int number) {
        return number == 16 ? std::optional(Colour{9, 8, 7}) : std::nullopt;
    };
    draw("bar");
    const int x = surface.Width() - 5;
    EXPECT_EQ(pixel(x, 3), (Colour{9, 8, 7}));
    EXPECT_EQ(pixel(x, 4), (Colour{255, 255, 255}));
    EXPECT_NE(pixel(x, 2), (Colour{9, 8, 7}));
    draw("bar", false, 2);
    EXPECT_EQ(pixel(surface.Width() - 9, 6), (Colour{9, 8, 7}));
    EXPECT_EQ(pixel(surface.Width() - 9, 9), (Colour{255, 255, 255}));
}

TEST_F(MenuDrawing, whatOpensAMenuBearsAnArrow) {
    draw("more");
    EXPECT_THAT(images.marks, testing::ElementsAre(MenuMark::Arrow));
    EXPECT_EQ(pixel(surface.Width() - 9, 11), kMark);
}

TEST_F(MenuDrawing, rightToLeftEverythingIsTurnedRound) {
    menus.RightToLeft = true;
    menus.ItemKeyAccel(at("more"), "F1");
    menus.ItemChecked(at("more"), true);
    draw("more", true);
    const int width = surface.Width();
    EXPECT_EQ(pixel(width - 10, 11), kMark) << "the check mark";
    EXPECT_EQ(pixel(9, 11), kMark) << "the arrow";
    EXPECT_EQ(pixel(width - kColumn - 1, 0), kHighlight);
    EXPECT_EQ(engine.lines[0].left, width - kColumn - 7 - 24);
    EXPECT_TRUE(engine.lines[0].rightToLeft);
    EXPECT_EQ(engine.lines[1].left, 18);
    EXPECT_THAT(images.marks, testing::ElementsAre(MenuMark::Check, MenuMark::ArrowLeftward));
}

TEST_F(MenuDrawing, aBackgroundIsTiledFromTheTopOfTheMenu) {
    menus.BackGroundPicture =
        ui::PixelImage{1, 2, {ui::opaquePixel({1, 1, 1}), ui::opaquePixel({2, 2, 2})}};
    surface.Init(40, 4);
    DrawItem record{.surface = &surface, .box = {0, 0, 40, 4}, .menuTop = 3, .menuHeight = 50};
    window.send({ui::messages::kDrawItem, 0, messageParameter(record)});
    EXPECT_EQ(pixel(30, 0), (Colour{2, 2, 2}));
    EXPECT_EQ(pixel(30, 1), (Colour{1, 1, 1}));
}

TEST_F(MenuDrawing, topLevelItemsAreCentred) {
    draw("file");
    EXPECT_EQ(engine.lines.back().left, (surface.Width() - 24) / 2);
}

TEST_F(MenuDrawing, itemsThatItDoesNotDrawAreLeftToTheWindow) {
    menus.ItemOwnerDrawAll = false;
    MeasureItem record{.id = menus.ItemID(at("open")), .engine = &engine};
    EXPECT_EQ(window.send({ui::messages::kMeasureItem, 0, messageParameter(record)}), 0);
    EXPECT_THAT(reached, testing::ElementsAre(ui::messages::kMeasureItem));
    EXPECT_EQ(window.send({ui::messages::kDrawItem, 0, 0}), 0);
}

TEST(MenuColours, wordsCanBeRead) {
    const MenuLook look;
    const auto contrast = [](std::int32_t one, std::int32_t other) {
        return ui::test::contrast(ui::cMemDC::TranslateColor(one),
                                  ui::cMemDC::TranslateColor(other));
    };
    EXPECT_GE(contrast(look.ForeColor, look.FaceColor), 4.5);
    EXPECT_GE(contrast(look.ForeColor, look.LowerFaceColor), 4.5);
    EXPECT_GE(contrast(look.HighlightForeColor, look.HighlightColor), 4.5);
    EXPECT_GE(contrast(look.ImageColor, look.BackColor), 4.5);
}

} // namespace
} // namespace tovik::menus
