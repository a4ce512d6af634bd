// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"
#include "menus/cMenus.h"
#include "MenusRig.h"

#include <gmock/gmock.h>

namespace tovik::menus {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Menus : testing::Test, MenusRig {
    [[nodiscard]] std::vector<std::string> keysBelow(int index) const {
        std::vector<std::string> keys;
        for (const int below : menus.itemsBelow(index)) {
            keys.push_back(menus.ItemKey(below));
            EXPECT_EQ(menus.item(below).position + 1, static_cast<int>(keys.size()));
        }
        return keys;
    }
};

TEST_F(Menus, aFormBecomesATree) {
    EXPECT_EQ(menus.ItemCount(), 8);
    EXPECT_THAT(keysBelow(0), ElementsAre("file", "tools"));
    EXPECT_THAT(keysBelow(at("file")), ElementsAre("open", "bar", "save"));
    EXPECT_EQ(menus.ItemParentIndex(at("deep")), at("more"));
    EXPECT_EQ(menus.ItemParentID(at("deep")), menus.ItemID(at("more")));
    EXPECT_TRUE(menus.ItemTopMenu(at("tools")));
    EXPECT_FALSE(menus.ItemTopMenu(at("more")));
    EXPECT_TRUE(menus.ItemSeparator(at("bar")));
    EXPECT_EQ(menus.ItemDescription(at("deep")), "Tools / More / Deep");
    EXPECT_EQ(menus.item(1).collectionKey(), "#" + std::to_string(menus.ItemID(1)));
}

TEST_F(Menus, aFormThatSkipsADepthIsRefused) {
    const std::vector<FormMenu> form = {{0, "a"}, {2, "b"}};
    EXPECT_THROW(menus.CreateFromForm(window, form), base::RuntimeError);
    const std::vector<FormMenu> negative = {{-1, "a"}};
    EXPECT_THROW(menus.CreateFromForm(window, negative), base::RuntimeError);
}

TEST_F(Menus, itemsAreFoundByIdAndKeyAndEmptyKeysAreNot) {
    EXPECT_EQ(menus.IndexForKey("open"), 2);
    EXPECT_EQ(menus.IndexForKey("Open"), 0);
    EXPECT_EQ(menus.IndexForKey(""), 0);
    EXPECT_EQ(menus.IndexForID(menus.ItemID(3)), 3);
    EXPECT_EQ(menus.IndexForID(0), 0);
    EXPECT_EQ(menus.IndexForID(999), 0);
}

TEST_F(Menus, anIndexThatIsNotValidRaises) {
    for (const int index : {-1, 0, 9}) {
        EXPECT_THROW(static_cast<void>(menus.ItemCaption(index)), base::RuntimeError);
        EXPECT_THROW(menus.ItemChecked(index, true), base::RuntimeError);
    }
}

TEST_F(Menus, everyPropertyKeepsWhatItIsGiven) {
    const int open = at("open");
    menus.ItemCaption(open, "Load");
    menus.ItemHelpText(open, "help");
    menus.ItemImage(open, 4);
    menus.ItemBreak(open, true);
    menus.ItemEnabled(open, false);
    menus.ItemChecked(open, true);
    menus.ItemVisible(open, false);
    menus.ItemCheckedStyle(open, CheckedStyle::Radio);
    menus.ItemTag(open, "tag");
    menus.ItemOwnerDrawID(open, 7);
    menus.ItemOwnerDrawData(open, "data");
    EXPECT_EQ(menus.ItemCaption(open), "Load");
    EXPECT_EQ(menus.ItemHelpText(open), "help");
    EXPECT_EQ(menus.ItemImage(open), 4);
    EXPECT_TRUE(menus.ItemBreak(open));
    EXPECT_FALSE(menus.ItemEnabled(open));
    EXPECT_TRUE(menus.ItemChecked(open));
    EXPECT_FALSE(menus.ItemVisible(open));
    EXPECT_EQ(menus.ItemCheckedStyle(open), CheckedStyle::Radio);
    EXPECT_EQ(menus.ItemTag(open), "tag");
    EXPECT_EQ(menus.ItemOwnerDrawID(open), 7);
    EXPECT_EQ(menus.ItemOwnerDrawData(open), "data");
    EXPECT_TRUE(menus.ItemOwnerDraw(open));
    menus.ItemOwnerDrawAll = false;
    EXPECT_FALSE(menus.ItemOwnerDraw(open));
    menus.ItemOwnerDraw(open, true);
    EXPECT_TRUE(menus.ItemOwnerDraw(open));
    menus.ItemSeparator(open, true);
    EXPECT_TRUE(menus.ItemSeparator(open));
    menus.ItemImage(open, "play");
    EXPECT_EQ(menus.ItemImage(open), -1) << "without a list there are no images";
}

TEST_F(Menus, itemsAreAddedReplacedAndRemoved) {
    const int added = menus.AddItem("Close", "close", at("file"), at("bar"));
    EXPECT_EQ(added, 9) << "the last of the collection";
    EXPECT_THAT(keysBelow(at("file")), ElementsAre("open", "close", "bar", "save"));
    EXPECT_TRUE(menus.ItemSeparator(menus.AddItem("-", "line", at("file"))));
    EXPECT_THROW(menus.AddItem("x", "x", at("file"), at("deep")), base::RuntimeError);

    const int id = menus.ItemID(at("more"));
    menus.ItemChecked(at("more"), true);
    menus.ReplaceItem(at("more"), "Most", "most");
    EXPECT_EQ(menus.ItemID(at("most")), id);
    EXPECT_FALSE(menus.ItemChecked(at("most")));
    EXPECT_THAT(keysBelow(at("most")), ElementsAre("deep"));

    menus.RemoveItem(at("tools"));
    EXPECT_EQ(at("deep"), 0);
    EXPECT_THAT(keysBelow(0), ElementsAre("file"));
    menus.RemoveItem(at("open"));
    EXPECT_THAT(keysBelow(at("file")), ElementsAre("close", "bar", "save", "line"));
    EXPECT_EQ(menus.ItemCount(), 5);
}

TEST_F(Menus, anIdIsNotGivenTwice) {
    const int last = menus.ItemID(menus.AddItem("a"));
    menus.RemoveItem(menus.ItemCount());
    EXPECT_GT(menus.ItemID(menus.AddItem("b")), last);
}

TEST_F(Menus, menusOfTheWindowSystemAreMadeOnceForWhatHasItemsBelow) {
    EXPECT_FALSE(menus.PopUpMenu(at("file"), {})) << "nothing is built yet";
    menus.BuildOn(facility);
    menus.BuildOn(facility);
    EXPECT_THAT(facility.parents, ElementsAre(menus.ItemID(at("file")), menus.ItemID(at("tools")),
                                              menus.ItemID(at("more"))));
    EXPECT_EQ(menus.item(at("deep")).handle, menus.handle(at("more")));
    EXPECT_EQ(menus.handle(at("open")), 0U);
    EXPECT_FALSE(menus.PopUpMenu(at("open"), {}));
    EXPECT_TRUE(menus.PopUpMenu(at("tools"), MenuPlace{1, 2, 3, 4}));
    EXPECT_THAT(facility.shown,
                ElementsAre(std::pair(MenuHandle{2}, std::optional(MenuPlace{1, 2, 3, 4}))));

    const int late = menus.AddItem("Late", "late", at("open"));
    menus.BuildOn(facility);
    EXPECT_EQ(menus.item(late).handle, 4U);
    menus.RemoveItem(at("tools"));
    EXPECT_THAT(facility.destroyed, ElementsAre(3, 2));
    menus.destroyMenus();
    EXPECT_THAT(facility.destroyed, ElementsAre(3, 2, 1, 4));
    EXPECT_EQ(menus.handle(at("file")), 0U);
}

TEST_F(Menus, aCommandMessageChoosesItsItem) {
    menus.ItemHelpText(at("save"), "Saves it");
    window.send({ui::messages::kCommand, menus.ItemID(at("save"))});
    EXPECT_THAT(clicked, ElementsAre("save"));
    EXPECT_THAT(reached, IsEmpty());
    EXPECT_EQ(menus.CurrentMenuIndex(), at("save"));
    EXPECT_EQ(menus.HelpText(), "Saves it");
    window.send({ui::messages::kCommand, 12345});
    EXPECT_THAT(reached, ElementsAre(ui::messages::kCommand));
    window.send({ui::messages::kMenuSelect, menus.ItemID(at("open"))});
    EXPECT_EQ(menus.CurrentMenuIndex(), at("open"));
    window.send({ui::messages::kMenuSelect, 0});
    EXPECT_EQ(menus.CurrentMenuIndex(), 0);
    EXPECT_EQ(menus.HelpText(), "");
}

TEST_F(Menus, mnemonicsAreFoundInTheirMenuOnly) {
    EXPECT_EQ(menus.AccelPressed('o', at("file")), at("open"));
    EXPECT_EQ(menus.AccelPressed('D', at("file")), 0);
    EXPECT_EQ(menus.AccelPressed('T', 0), at("tools"));
    menus.ItemEnabled(at("open"), false);
    EXPECT_EQ(menus.AccelPressed('O', at("file")), 0);
}

struct MenuKeys : Menus {
    ui::MessageWindow keys{[this](const ui::WindowMessage& message) {
        passedOn.push_back(static_cast<int>(message.wParam));
        return ui::MessageResult{0};
    }};
    std::vector<int> passedOn;

    MenuKeys() { menus.hWndKeyOwner(&keys); }
};

TEST_F(MenuKeys, anAcceleratorChoosesItsItemAndIsConsumed) {
    EXPECT_TRUE(menus.ItemKeyAccel(at("save"), "Ctrl+S"));
    EXPECT_EQ(keys.send({ui::messages::kKeyDown, 'S', 2}), 1);
    EXPECT_THAT(clicked, ElementsAre("save"));
    EXPECT_THAT(passedOn, IsEmpty());
    EXPECT_EQ(keys.send({ui::messages::kKeyDown, 'S', 0}), 0) << "another shift state";
    EXPECT_THAT(passedOn, ElementsAre('S'));
    menus.ConsumeKeys = false;
    keys.send({ui::messages::kKeyDown, 'S', 2});
    EXPECT_THAT(clicked, ElementsAre("save", "save"));
    EXPECT_THAT(passedOn, ElementsAre('S', 'S'));
    EXPECT_EQ(menus.hWndKeyOwner(), &keys);
    menus.hWndKeyOwner(nullptr);
    keys.send({ui::messages::kKeyDown, 'S', 2});
    EXPECT_EQ(clicked.size(), 2U);
}

TEST_F(MenuKeys, theStateCountsAsItIsJustBefore) {
    menus.ItemKeyAccel(at("save"), "Ctrl+S");
    menus.ItemEnabled(at("save"), false);
    EXPECT_TRUE(menus.KeyAccelPressed('S', 2)) << "the key is the item's all the same";
    EXPECT_THAT(clicked, IsEmpty());
    EXPECT_THAT(reached, ElementsAre(ui::messages::kInitMenuPopup));
    menus.ItemVisible(at("save"), false);
    EXPECT_FALSE(menus.KeyAccelPressed('S', 2)) << "what is hidden has no keys";
}

TEST_F(Menus, anAcceleratorIsRefusedWhereItMayNotBe) {
    EXPECT_FALSE(menus.ItemKeyAccel(at("bar"), "Ctrl+B"));
    EXPECT_FALSE(menus.ItemKeyAccel(0, "Ctrl+B"));
    EXPECT_FALSE(menus.ItemKeyAccel(99, "Ctrl+B"));
    EXPECT_FALSE(menus.ItemKeyAccel(at("open"), std::string_view("a\0b", 3)));
    EXPECT_FALSE(menus.acceleratorsChanged());
    EXPECT_TRUE(menus.ItemKeyAccel(at("open"), "Ctrl+B"));
    EXPECT_FALSE(menus.ItemKeyAccel(at("save"), "ctrl+b"));
    EXPECT_EQ(menus.ItemKeyAccel(at("save")), "");
    EXPECT_EQ(menus.IndexForKeyAccel("CTRL+B"), at("open"));
}

TEST_F(Menus, anEmptyAcceleratorIsNoDoubleAndTheSameChangesNothing) {
    EXPECT_TRUE(menus.ItemKeyAccel(at("open"), ""));
    EXPECT_FALSE(menus.acceleratorsChanged());
    EXPECT_TRUE(menus.ItemKeyAccel(at("open"), "F5"));
    EXPECT_TRUE(menus.acceleratorsChanged());
    EXPECT_TRUE(menus.ItemKeyAccel(at("open"), ""));
    EXPECT_TRUE(menus.ItemKeyAccel(at("save"), "F5"));
    EXPECT_EQ(menus.IndexForKeyAccel(""), 0);
}

} // namespace
} // namespace tovik::menus
