// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/RowDrag.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::ui {
namespace {

using testing::Optional;
using Move = RowDrag::Move;

/// Ten rows of a hundred, from the twentieth on, 15 pixels each.
constexpr RowView kView{.rows = 100, .first = 20, .shown = 10, .pitch = 15};

std::optional<Move> dragged(std::size_t row, int from, int to, const RowView& view = kView) {
    RowDrag drag;
    drag.press(row, from);
    drag.moveTo(to, view);
    return drag.release();
}

TEST(RowDrag, theRowComesInFrontOfTheOneUnderThePointer) {
    EXPECT_THAT(dragged(25, 80, 0), Optional(Move{25, 20}));
    EXPECT_THAT(dragged(25, 80, 14), Optional(Move{25, 20}));
    EXPECT_THAT(dragged(25, 80, 15), Optional(Move{25, 21}));
    EXPECT_THAT(dragged(25, 80, 149), Optional(Move{25, 29}));
}

TEST(RowDrag, belowTheLastRowItComesToTheEnd) {
    const RowView few{.rows = 3, .first = 0, .shown = 10, .pitch = 15};
    EXPECT_THAT(dragged(0, 5, 44, few), Optional(Move{0, 2}));
    EXPECT_THAT(dragged(0, 5, 45, few), Optional(Move{0, 3}));
    EXPECT_THAT(dragged(0, 5, 5000, few), Optional(Move{0, 3}));
}

TEST(RowDrag, outsideTheViewTheTargetIsWhatIsSeenLast) {
    EXPECT_THAT(dragged(25, 80, -500), Optional(Move{25, 20}));
    EXPECT_THAT(dragged(25, 80, 5000), Optional(Move{25, 30}));
}

TEST(RowDrag, aHandThatShakesDragsNothing) {
    EXPECT_EQ(dragged(25, 80, 80 + RowDrag::kStart - 1), std::nullopt);
    EXPECT_EQ(dragged(25, 80, 80 - RowDrag::kStart + 1), std::nullopt);
    RowDrag drag;
    drag.press(25, 80);
    drag.moveTo(80 + RowDrag::kStart, kView);
    EXPECT_THAT(drag.target(), Optional(25U));
    drag.moveTo(80, kView);
    EXPECT_THAT(drag.target(), Optional(25U)) << "once begun it goes on";
}

TEST(RowDrag, withoutAPressOrAfterACancelNothingIsDragged) {
    RowDrag drag;
    drag.moveTo(50, kView);
    EXPECT_EQ(drag.target(), std::nullopt);
    EXPECT_EQ(drag.release(), std::nullopt);
    drag.press(21, 20);
    drag.moveTo(90, kView);
    drag.cancel();
    EXPECT_EQ(drag.row(), std::nullopt);
    EXPECT_EQ(drag.release(), std::nullopt);
    drag.press(21, 20);
    EXPECT_EQ(drag.target(), std::nullopt) << "the one before leaves nothing";
}

TEST(RowDrag, scrollsWhereThePointerLeftTheViewAndThereIsMore) {
    const auto direction = [](int y, const RowView& view) {
        RowDrag drag;
        drag.press(view.first, 5);
        drag.moveTo(20, view);
        drag.moveTo(y, view);
        return drag.scrolls(view);
    };
    EXPECT_EQ(direction(-1, kView), -1);
    EXPECT_EQ(direction(0, kView), 0);
    EXPECT_EQ(direction(149, kView), 0);
    EXPECT_EQ(direction(150, kView), 1);
    EXPECT_EQ(direction(-1, {.rows = 100, .first = 0, .shown = 10, .pitch = 15}), 0);
    EXPECT_EQ(direction(150, {.rows = 100, .first = 90, .shown = 10, .pitch = 15}), 0);
    EXPECT_EQ(RowDrag().scrolls(kView), 0);
}

} // namespace
} // namespace tovik::ui
