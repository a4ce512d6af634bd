// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniElements.h"

#include "window/MiniSkin.h"

#include <gtest/gtest.h>

#include <set>

namespace tovik::window {
namespace {

struct ToldMini {
    MiniElement name;
    std::size_t index;
    ui::Box box;
};

TEST(MiniElementsTest, standWhereSkinsExpectThem) {
    const MiniElements elements(miniLayout());
    const std::vector<ToldMini> places = {
        {MiniElement::picBackground, 0, {0, 0, 160, 125}},
        {MiniElement::Image1, 0, {22, 48, 10, 10}},
        {MiniElement::Image1, 1, {20, 60, 10, 10}},
        {MiniElement::Image1, 2, {22, 72, 10, 10}},
        {MiniElement::songname, 0, {40, 12, 112, 10}},
        {MiniElement::posbar, 0, {40, 26, 100, 6}},
        {MiniElement::Picture1, 0, {40, 68, 70, 16}},
        {MiniElement::Image4, 0, {40, 86, 12, 12}},
        {MiniElement::Image4, 5, {100, 86, 12, 12}},
        {MiniElement::volbar, 0, {112, 60, 36, 59}},
    };
    for (const ToldMini& told : places) {
        EXPECT_EQ(elements.get(told.name, told.index).box(), told.box)
            << static_cast<int>(told.name);
    }
    for (std::size_t digit = 0; digit < 6; ++digit) {
        EXPECT_DOUBLE_EQ(elements.get(MiniElement::timed, digit).left,
                         40 + 10.4 * static_cast<double>(digit));
    }
    EXPECT_DOUBLE_EQ(elements.get(MiniElement::LoopImg2).left,
                     elements.get(MiniElement::loopImg).left + 4);
    EXPECT_EQ(elements.get(MiniElement::sld2).box(), elements.get(MiniElement::Sld).box());
    EXPECT_EQ(elements.get(MiniElement::mono_img).left, 40);
    EXPECT_EQ(elements.get(MiniElement::Stereo_img).left, 75);
    EXPECT_EQ(elements.get(MiniElement::shwchange).top, 112);
}

TEST(MiniElementsTest, eachNameHasRowsAndEachIndexOne) {
    const MiniElements elements(miniLayout());
    for (int name = 0; name <= static_cast<int>(MiniElement::Picture3); ++name) {
        EXPECT_GT(elements.count(static_cast<MiniElement>(name)), 0U) << name;
    }
    std::set<std::pair<int, std::size_t>> seen;
    for (const auto& place : miniLayout()) {
        for (std::size_t i = 0; i < place.count; ++i) {
            EXPECT_TRUE(seen.emplace(static_cast<int>(place.name), place.first + i).second);
        }
    }
}

TEST(MiniElementsTest, nothingThatIsSeenLeavesTheWindow) {
    const MiniElements elements(miniLayout());
    const ui::Box window = elements.get(MiniElement::picBackground).box();
    for (std::size_t slot = 0; slot < elements.size(); ++slot) {
        const ui::Element& element = elements.at(slot);
        EXPECT_GE(element.left, 0);
        EXPECT_LE(element.left + element.width, window.width) << slot;
        EXPECT_LE(element.top + element.height, window.height) << slot;
    }
}

TEST(MiniElementsTest, twinsAreElementsOfBothWindows) {
    const MiniElements mini(miniLayout());
    const MainElements main(mainLayout());
    std::size_t pictures = 0;
    for (const MiniTwin& twin : miniTwins()) {
        EXPECT_LT(twin.miniIndex, mini.count(twin.mini));
        EXPECT_LT(twin.mainIndex, main.count(twin.main));
        pictures += twin.picture ? 1U : 0U;
    }
    EXPECT_EQ(pictures, 8U);
    EXPECT_EQ(mainTwinOf(ui::addressOf(MiniElement::Image4, 3)),
              ui::addressOf(MainElement::stopup));
    EXPECT_FALSE(mainTwinOf(ui::addressOf(MiniElement::Picture2)));
}

TEST(MiniElementsTest, aSkinHasSeventeenFilesForIt) {
    std::set<std::string_view> names;
    for (const MiniPicture& row : miniBindings()) {
        names.insert(row.name);
        EXPECT_TRUE(row.name.starts_with("minmode_")) << row.name;
    }
    EXPECT_EQ(names.size(), 17U);
    EXPECT_EQ(miniBindings().size(), 17U);
    EXPECT_EQ(miniBindings().front().element, MiniElement::picBackground);
    EXPECT_EQ(miniBindings()[16].index, 9U);
}

} // namespace
} // namespace tovik::window
