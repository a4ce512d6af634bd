// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ElementTable.h"
#include "SmallWindow.h"

#include "base/RuntimeError.h"

#include <gmock/gmock.h>

namespace tovik::ui {
namespace {

using test::kSmallLayout;
using test::Small;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Optional;

class ElementTableTest : public testing::Test {
protected:
    ElementTable<Small> table_{kSmallLayout};

    std::size_t slot(Small name, std::size_t index = 0) const {
        return table_.slotOf(addressOf(name, index));
    }
};

TEST_F(ElementTableTest, theLayoutFillsTheRecords) {
    const Element& lamp = table_.get(Small::lamp, 2);
    EXPECT_EQ(lamp.kind, ElementKind::Bar);
    EXPECT_EQ(lamp.box(), (Box{51, 70, 10, 12}));
    EXPECT_TRUE(lamp.visible);
    EXPECT_TRUE(lamp.enabled);
    EXPECT_EQ(lamp.backColour, (Colour{255, 0, 0}));
    EXPECT_FALSE(table_.get(Small::down).visible);
    EXPECT_TRUE(table_.get(Small::down).checked);
    EXPECT_EQ(table_.count(Small::lamp), 3U);
    EXPECT_EQ(table_.count(Small::ground), 1U);
}

TEST_F(ElementTableTest, slotsFollowTheOrderOfTheRows) {
    EXPECT_EQ(table_.size(), 10U);
    EXPECT_EQ(slot(Small::ground), 0U);
    EXPECT_EQ(slot(Small::title), 1U);
    EXPECT_EQ(slot(Small::lamp, 2), 4U);
    EXPECT_EQ(table_.address(4), addressOf(Small::lamp, 2));
    EXPECT_LT(slot(Small::up), slot(Small::down));
}

TEST_F(ElementTableTest, anIndexThatIsNotThereRaises9) {
    for (const std::size_t index : {std::size_t{3}, std::size_t{0x10000}, ~std::size_t{0}}) {
        try {
            static_cast<void>(table_.touch(Small::lamp, index));
            FAIL() << index;
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number(), 9);
        }
        EXPECT_THROW(static_cast<void>(table_.get(Small::lamp, index)), base::RuntimeError);
    }
    EXPECT_THROW(static_cast<void>(table_.slotOf({.name = 7, .index = 0})), base::RuntimeError);
    EXPECT_THAT(table_.takeChanges(), IsEmpty());
}

TEST_F(ElementTableTest, onlyRecordsThatReallyChangedAreChanges) {
    table_.touch(Small::title).caption = "A";
    table_.touch(Small::up).visible = true;        // as before
    table_.touch(Small::down).left = 99;           // hidden before and after
    table_.touch(Small::lamp, 1).tooltip = "lamp"; // is not painted
    Element& lamp = table_.touch(Small::lamp, 2);
    lamp.checked = true;
    lamp.checked = false; // and back again
    EXPECT_THAT(table_.takeChanges(),
                ElementsAre(Field(&ElementStore::Change::slot, slot(Small::title))));
    EXPECT_THAT(table_.takeChanges(), IsEmpty());
    EXPECT_EQ(table_.get(Small::down).left, 99);
    EXPECT_EQ(table_.get(Small::lamp, 1).tooltip, "lamp");
}

TEST_F(ElementTableTest, aChangeTellsWhereTheElementWasAndIs) {
    table_.touch(Small::down).visible = true;
    table_.touch(Small::up).visible = false;
    table_.touch(Small::title).left = 15;
    const auto changes = table_.takeChanges();
    ASSERT_EQ(changes.size(), 3U);
    EXPECT_EQ(changes[0].slot, slot(Small::title));
    EXPECT_THAT(changes[0].before, Optional(Box{10, 10, 80, 14}));
    EXPECT_THAT(changes[0].after, Optional(Box{15, 10, 80, 14}));
    EXPECT_EQ(changes[1].slot, slot(Small::up));
    EXPECT_THAT(changes[1].before, Optional(Box{40, 40, 30, 20}));
    EXPECT_EQ(changes[1].after, std::nullopt);
    EXPECT_EQ(changes[2].before, std::nullopt);
    EXPECT_THAT(changes[2].after, Optional(Box{40, 40, 30, 20}));
}

TEST_F(ElementTableTest, eachFieldThatIsPaintedCounts) {
    const std::vector<std::function<void(Element&)>> writes{
        [](Element& title) { title.top = 11; },
        [](Element& title) { title.width = 5; },
        [](Element& title) { title.height = 5; },
        [](Element& title) { title.enabled = false; },
        [](Element& title) { title.checked = true; },
        [](Element& title) { title.wraps = true; },
        [](Element& title) { title.textHeight = 30; },
        [](Element& title) { title.picture.number = 1; },
        [](Element& title) { title.picture.version = 1; },
        [](Element& title) { title.textColour.red = 1; },
        [](Element& title) { title.backColour = Colour{}; },
    };
    for (std::size_t i = 0; i < writes.size(); ++i) {
        writes[i](table_.touch(Small::title));
        EXPECT_EQ(table_.takeChanges().size(), 1U) << i;
    }
}

TEST_F(ElementTableTest, theOwnerHearsOfTheFirstWriteOnly) {
    int calls = 0;
    table_.onTouched([&] { ++calls; });
    table_.touch(Small::title).caption = "A";
    table_.touch(Small::title).caption = "B";
    table_.touch(Small::up).visible = false;
    EXPECT_EQ(calls, 1);
    static_cast<void>(table_.takeChanges());
    EXPECT_EQ(calls, 1);
    table_.touch(Small::title).caption = "B";
    EXPECT_EQ(calls, 2);
    table_.forgetChanges();
    table_.touch(Small::title).caption = "C";
    EXPECT_EQ(calls, 3);
    table_.forgetChanges();
    EXPECT_THAT(table_.takeChanges(), IsEmpty());
}

TEST_F(ElementTableTest, aPlaceBelongsToTheTopmostVisibleElementThatTakesTheMouse) {
    const auto at = [&](double x, double y) { return table_.topmostAt(x, y); };
    EXPECT_THAT(at(41, 41), Optional(slot(Small::up)));
    table_.touch(Small::down).visible = true;
    EXPECT_THAT(at(41, 41), Optional(slot(Small::down)));
    table_.touch(Small::down).enabled = false;
    EXPECT_THAT(at(41, 41), Optional(slot(Small::down)));
    table_.touch(Small::down).takesMouse = false;
    EXPECT_THAT(at(41, 41), Optional(slot(Small::up)));
    table_.touch(Small::up).visible = false;
    EXPECT_THAT(at(41, 41), Optional(slot(Small::ground)));
    EXPECT_EQ(at(200, 50), std::nullopt);
    EXPECT_EQ(at(-0.1, 50), std::nullopt);
}

TEST_F(ElementTableTest, theLeftAndTopEdgesBelongToAnElementTheOthersDoNot) {
    const auto at = [&](double x, double y) { return table_.topmostAt(x, y); };
    EXPECT_THAT(at(30.5, 70), Optional(slot(Small::lamp, 1)));
    EXPECT_THAT(at(30.4, 70), Optional(slot(Small::ground)));
    EXPECT_THAT(at(40.4, 81.9), Optional(slot(Small::lamp, 1)));
    EXPECT_THAT(at(40.5, 81.9), Optional(slot(Small::ground)));
    EXPECT_THAT(at(35, 82), Optional(slot(Small::ground)));
}

} // namespace
} // namespace tovik::ui
