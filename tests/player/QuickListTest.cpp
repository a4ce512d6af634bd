// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/QuickList.h"

#include <gtest/gtest.h>

namespace tovik::player {
namespace {

using ui::MainElement;

class QuickList : public testing::Test {
protected:
    QuickList() {
        elements_.touch(MainElement::qpl_col).picture = {.number = 1, .version = 1};
        elements_.touch(MainElement::qpl_exp).picture = {.number = 2, .version = 1};
    }

    void expectList(double top, double width, double height) const {
        const ui::Element& list = elements_.get(MainElement::List1);
        EXPECT_EQ(list.top, top);
        EXPECT_EQ(list.width, width);
        EXPECT_EQ(list.height, height);
    }

    void expectCovered(bool visible) const {
        EXPECT_EQ(elements_.get(MainElement::infoWin).visible, visible);
        EXPECT_EQ(elements_.get(MainElement::fxWin).visible, visible);
        EXPECT_EQ(elements_.get(MainElement::lblPos, 3).visible, visible);
    }

    ui::MainElements elements_{ui::mainLayout()};
};

TEST_F(QuickList, open) {
    ApplyQuickList(elements_, true);
    expectList(60, 163, 202);
    expectCovered(false);
    EXPECT_EQ(elements_.get(MainElement::qpl_but).picture.number, 1U);
}

TEST_F(QuickList, closed) {
    ApplyQuickList(elements_, true);
    ApplyQuickList(elements_, false);
    expectList(169, 161, 80);
    expectCovered(true);
    EXPECT_EQ(elements_.get(MainElement::qpl_but).picture.number, 2U);
}

} // namespace
} // namespace tovik::player
