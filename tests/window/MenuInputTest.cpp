// SPDX-License-Identifier: GPL-3.0-or-later
// Who pops up which menu, and accelerators in front of the keyboard map.
#include "menus/cMenus.h"
#include "playlist/ListMirror.h"
#include "window/InputRig.h"
#include "window/ListRows.h"
#include "window/QuickListRows.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::MouseButton;
using window::MainElement;
using window::MenuRoot;

struct MenuInput : InputRig {
    [[nodiscard]] std::vector<MenuRoot> rightClick(MainElement element) {
        menus_.popped.clear();
        input_.mouseDown(at(element, 0, MouseButton::Right));
        input_.mouseUp(at(element, 0, MouseButton::Right));
        std::vector<MenuRoot> roots;
        for (const auto& [root, place] : menus_.popped) {
            EXPECT_FALSE(place) << "at the pointer";
            roots.push_back(root);
        }
        return roots;
    }
};

TEST_F(MenuInput, theRightButtonPopsUpTheMenuOfItsPlace) {
    EXPECT_THAT(rightClick(MainElement::mainIMG), ElementsAre(MenuRoot::mnuMain));
    EXPECT_THAT(rightClick(MainElement::iconIMG), ElementsAre(MenuRoot::mnuMain));
    EXPECT_THAT(rightClick(MainElement::Picture1), ElementsAre(MenuRoot::vis));
    EXPECT_THAT(rightClick(MainElement::playup), IsEmpty());
    EXPECT_THAT(ran_, IsEmpty());
    input_.mouseDown(at(MainElement::mainIMG));
    EXPECT_THAT(menus_.popped, IsEmpty()) << "the left button does not";
}

TEST_F(MenuInput, theKeyForMenusPopsUpTheMainOne) {
    EXPECT_TRUE(input_.keyDown({.code = 0x5D}));
    EXPECT_TRUE(input_.keyDown({.code = 0x79, .modifiers = {.shift = true}}));
    EXPECT_FALSE(input_.keyDown({.code = 0x79}));
    const ui::Box icon = elements_.get(MainElement::iconIMG).box();
    EXPECT_THAT(menus_.popped, ElementsAre(std::pair(MenuRoot::mnuMain, std::optional(icon)),
                                           std::pair(MenuRoot::mnuMain, std::optional(icon))));
}

TEST_F(MenuInput, anAcceleratorWinsOverTheMapWhichGoesOnBesideIt) {
    ui::MessageWindow window;
    menus::cMenus model;
    model.CreateFromNothing(window);
    model.hWndKeyOwner(&input_.keyWindow());
    int chosen = 0;
    model.onClick([&chosen](int /*index*/) { ++chosen; });
    model.ItemKeyAccel(model.AddItem("Item"), "V");
    EXPECT_TRUE(input_.keyDown({.code = 'V'}));
    EXPECT_EQ(chosen, 1);
    EXPECT_THAT(ran_, IsEmpty());
    EXPECT_TRUE(input_.keyDown({.code = 'X'}));
    EXPECT_THAT(ran_, ElementsAre(CommandId::play));
    EXPECT_FALSE(input_.keyDown({.code = 'V', .modifiers = {.shift = true}}));
}

TEST_F(MenuInput, aKeyThatIsHeldDoesNotUndoWhatItDid) {
    for (const bool repeated : {false, true, true}) {
        EXPECT_TRUE(input_.keyDown({.code = 'C', .repeated = repeated}));
        EXPECT_TRUE(
            input_.keyDown({.code = 'M', .modifiers = {.control = true}, .repeated = repeated}));
    }
    EXPECT_THAT(ran_, ElementsAre(CommandId::pause, CommandId::stopAfterCurrent));
    ran_.clear();
    for (const bool repeated : {false, true}) {
        input_.keyDown({.code = 0x25, .repeated = repeated});
    }
    EXPECT_THAT(ran_, ElementsAre(CommandId::backFiveSeconds, CommandId::backFiveSeconds));
    menus_.accelerators.insert('V');
    EXPECT_TRUE(input_.keyDown({.code = 'V', .repeated = true}));
    EXPECT_EQ(ran_.size(), 2U);
}

TEST_F(MenuInput, listsPopUpTheMenuOfTheirRows) {
    for (const char* const title : {"a", "b", "c"}) {
        list_.AddItem("", "", title, "", 0);
    }
    window::ListRows rows(list_, &menus_);
    rows.contextRow(1);
    ASSERT_EQ(menus_.lists.size(), 1U);
    EXPECT_EQ(menus_.lists[0].rows->current(), 1U);
    EXPECT_EQ(menus_.lists[0].input, &rows);
    menus_.lists[0].input->removeRows();
    EXPECT_EQ(list_.ListCount(), 2);
    EXPECT_EQ(list_.text(2, playlist::RowText::Title), "c");
    rows.contextNowhere();
    EXPECT_EQ(menus_.lists.size(), 2U);
    window::ListRows quiet(list_);
    quiet.contextRow(0);
    EXPECT_EQ(menus_.lists.size(), 2U);
}

TEST_F(MenuInput, aKeyShowsTheMenuOfARowAtTheRow) {
    for (const char* const title : {"a", "b", "c"}) {
        list_.AddItem("", "", title, "", 0);
    }
    const auto place = [](std::size_t row) {
        return menus::MenuPlace{10, 20 + 15.0 * static_cast<double>(row), 100, 15};
    };
    window::ListRows rows(list_, &menus_);
    rows.showsRowsAt(place);
    rows.contextByKey(2);
    window::QuickListRows quick(mirror_, list_, rowPlayer_, &menus_);
    quick.showsRowsAt(place);
    quick.contextByKey(1);
    rows.contextRow(0);
    EXPECT_THAT(menus_.places, ElementsAre(std::optional(place(2)), std::optional(place(1)),
                                           std::optional<menus::MenuPlace>()));
    EXPECT_EQ(menus_.lists[0].input, &rows);
    EXPECT_EQ(menus_.lists[1].input, &quick);
}

TEST_F(MenuInput, theQuickListPopsUpTheSameAndStaysInStep) {
    for (const char* const title : {"a", "b", "c"}) {
        list_.AddItem("", "", title, "", 0);
    }
    window::QuickListRows rows(mirror_, list_, rowPlayer_, &menus_);
    rows.selectRow(1, {});
    rows.contextRow(1);
    ASSERT_EQ(menus_.lists.size(), 1U);
    menus_.lists[0].input->removeRows();
    EXPECT_EQ(rows.rows(), 2U);
    EXPECT_EQ(rows.text(1), "c");
    EXPECT_EQ(list_.ListCount(), 2);
}

} // namespace
} // namespace tovik::test
