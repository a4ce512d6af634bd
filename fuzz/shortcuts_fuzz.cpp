// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a file of shortcuts: whatever it sets, no two items share a key, separators
// have none, and what is saved comes back the same.
#include "menus/Accelerator.h"
#include "menus/cMenus.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace tovik;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void fill(menus::cMenus& menus, ui::MessageWindow& window) {
    menus.CreateFromNothing(window);
    const int top = menus.AddItem("File", "file");
    menus.AddItem("Open", "open", top);
    menus.AddItem("-", "bar", top);
    menus.AddItem("Save", "save", top);
    menus.AddItem("Nameless", "", top);
    menus.AddItem("Of an array", "item(3)", top);
    menus.ItemVisible(menus.AddItem("Hidden", "hidden", top), false);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ui::MessageWindow window;
    menus::cMenus menus;
    fill(menus, window);
    menus.applyShortcuts(std::string(data, data + size));
    demand(menus.ItemKeyAccel(menus.IndexForKey("bar")).empty());
    for (int one = 1; one <= menus.ItemCount(); ++one) {
        for (int other = one + 1; other <= menus.ItemCount(); ++other) {
            demand(!menus::sameAccelerator(menus.ItemKeyAccel(one), menus.ItemKeyAccel(other)));
        }
    }
    ui::MessageWindow again;
    menus::cMenus copy;
    fill(copy, again);
    demand(copy.applyShortcuts(menus.shortcutBytes()));
    demand(copy.shortcutBytes() == menus.shortcutBytes());
    return 0;
}
