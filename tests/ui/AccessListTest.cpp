// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/AccessList.h"

#include "SmallWindow.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

using test::Small;

class AccessListTest : public testing::Test {
protected:
    static constexpr std::size_t kTitle = 0;
    static constexpr std::size_t kButton = 1;
    static constexpr std::size_t kLamps = 2;
    static constexpr std::size_t kList = 3;

    std::vector<std::size_t> unwilling_;
    ElementTable<Small> table_{test::kSmallLayout};
    AccessList list_{table_,
                     {{.element = addressOf(Small::title), .role = ElementRole::Label},
                      {.element = addressOf(Small::up),
                       .face = addressOf(Small::down),
                       .role = ElementRole::Button},
                      {.element = addressOf(Small::lamp), .parts = 3, .role = ElementRole::Slider},
                      {.element = addressOf(Small::list), .role = ElementRole::Control}}};

    std::optional<std::size_t> next(std::optional<std::size_t> from, bool forward = true) {
        return list_.nextStop(from, forward, [this](std::size_t place) {
            return std::ranges::find(unwilling_, place) == unwilling_.end();
        });
    }
};

TEST_F(AccessListTest, stopsFollowEachOtherRoundAndRound) {
    EXPECT_EQ(next(std::nullopt), kButton) << "a label is no stop";
    EXPECT_EQ(next(kButton), kLamps);
    EXPECT_EQ(next(kLamps), kList);
    EXPECT_EQ(next(kList), kButton);
    EXPECT_EQ(next(std::nullopt, false), kList);
    EXPECT_EQ(next(kButton, false), kList);
    EXPECT_EQ(next(kList, false), kLamps);
}

TEST_F(AccessListTest, whatCannotBeUsedIsPassedOver) {
    table_.touch(Small::up).visible = false;
    EXPECT_EQ(next(kList), kLamps);
    table_.touch(Small::down).visible = true;
    EXPECT_EQ(next(kList), kButton) << "its other face is there";
    table_.touch(Small::down).enabled = false;
    EXPECT_EQ(next(kList), kLamps);
    unwilling_ = {kLamps};
    EXPECT_EQ(next(std::nullopt), kList);
    EXPECT_EQ(next(kList), std::nullopt) << "none but itself";
}

TEST_F(AccessListTest, partsAreOnePlace) {
    EXPECT_EQ(list_.box(kLamps), (Box{10, 70, 51, 12}));
    table_.touch(Small::lamp, 2).visible = false;
    EXPECT_EQ(list_.box(kLamps), (Box{10, 70, 30.5, 12}));
    EXPECT_EQ(list_.placeOf(table_.slotOf(addressOf(Small::lamp, 1))), kLamps);
    EXPECT_EQ(list_.placeOf(table_.slotOf(addressOf(Small::down))), kButton);
    EXPECT_EQ(list_.placeOf(table_.slotOf(addressOf(Small::ground))), std::nullopt);
}

TEST_F(AccessListTest, aNameIsNeverLeftOut) {
    table_.touch(Small::up).caption = "caption";
    EXPECT_EQ(list_.name(kButton), "caption");
    table_.touch(Small::up).tooltip = "tooltip";
    EXPECT_EQ(list_.name(kButton), "tooltip");
    table_.touch(Small::up).name = "name";
    EXPECT_EQ(list_.name(kButton), "name");
}

TEST_F(AccessListTest, anElementThatIsNotThereIsAnError) {
    EXPECT_ANY_THROW(AccessList(
        table_, {{.element = addressOf(Small::lamp), .parts = 4, .role = ElementRole::Slider}}));
}

} // namespace
} // namespace tovik::ui
