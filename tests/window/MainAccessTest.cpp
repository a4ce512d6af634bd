// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainAccess.h"

#include <gtest/gtest.h>

namespace tovik::window {
namespace {

/// Of any two stops that are seen at once and share a column, the upper one comes first; in one
/// line it is the left one.
TEST(MainAccess, followsTheEye) {
    ui::MainElements elements(ui::mainLayout());
    const ui::AccessList list(elements, mainAccess());
    int compared = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        for (std::size_t j = i + 1; j < list.size(); ++j) {
            if (!ui::isStop(list.at(i).role) || !ui::isStop(list.at(j).role) || !list.shown(i) ||
                !list.shown(j)) {
                continue;
            }
            const ui::Box first = list.box(i);
            const ui::Box second = list.box(j);
            if (first.top >= second.top + second.height) {
                EXPECT_FALSE(first.left < second.left + second.width &&
                             second.left < first.left + first.width)
                    << list.element(i).caption << " above " << list.element(j).caption;
                ++compared;
            } else if (first.top == second.top && first.height == second.height) {
                EXPECT_LT(first.left, second.left);
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 30);
}

TEST(MainAccess, everyElementThatTakesTheMouseOrShowsWordsIsThere) {
    ui::MainElements elements(ui::mainLayout());
    const ui::AccessList list(elements, mainAccess());
    using enum ui::MainElement;
    for (std::size_t slot = 0; slot < elements.size(); ++slot) {
        const ui::Element& element = elements.at(slot);
        const auto name = elements.address(slot).as<ui::MainElement>();
        const bool acts = element.kind == ui::ElementKind::Button ||
                          element.kind == ui::ElementKind::Slider ||
                          element.kind == ui::ElementKind::Control;
        // The menu behind the icon is not there yet.
        if ((acts || element.kind == ui::ElementKind::Label) && name != iconIMG) {
            EXPECT_TRUE(list.placeOf(slot)) << static_cast<int>(name);
        }
    }
}

} // namespace
} // namespace tovik::window
