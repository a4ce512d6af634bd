// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Menus.h"

#include "commands/MenuTree.h"

#include <algorithm>
#include <tuple>

namespace tovik::app {

using commands::CommandId;
using window::MainElement;
using window::MenuRoot;

Menus::Menus(commands::Commands& commands, const config::MenuTexts& texts,
             window::PlayerWindow& window, const config::Errors& errors, const host::Paths& paths)
    : frmTSR(commands, texts, window), commands_(commands), errors_(errors), paths_(paths) {}

void Menus::bind(commands::Commands& commands, const window::MainElements& elements,
                 ui::MessageWindow& keys) {
    keys_ = &keys;
    for (const auto& [id, root, element] :
         {std::tuple(CommandId::presetMenu, MenuRoot::mnuPreset, MainElement::presetbt),
          std::tuple(CommandId::ripMenu, MenuRoot::mnuRip, MainElement::ripperbt),
          std::tuple(CommandId::mainMenu, MenuRoot::mnuMain, MainElement::iconIMG)}) {
        commands.bind(id, [this, &elements, root = root, element = element] {
            frmTSR.popUp(root, elements.get(element).box());
        });
    }
    commands.bind(CommandId::listPlay, {.run = [this] { frmTSR.mnuplsPlay(); },
                                        .enabled = [this] { return frmTSR.listHasSelection(); }});
    commands.bind(CommandId::listDelete, {.run = [this] { frmTSR.mnuplsDel(); },
                                          .enabled = [this] { return frmTSR.listHasSelection(); }});
    commands.bind(
        CommandId::listInfo,
        {.run = [this] { commands_.run(frmTSR.listInfo()); },
         .enabled =
             [this] { return frmTSR.listHasSelection() && commands_.enabled(frmTSR.listInfo()); }});
}

preferences::AcceleratorMenus Menus::accelerators() {
    const auto entryOf = [this](CommandId command) {
        const auto tree = commands::menuTree();
        const auto entry = std::ranges::find_if(tree, [command](const auto& candidate) {
            return candidate.command == command && command != CommandId::none;
        });
        return entry == tree.end() ? 0 : frmTSR.m_Menus.IndexForKey(entry->key());
    };
    return {.menus = &frmTSR.m_Menus,
            .entryOf = entryOf,
            .refresh = [this] { frmTSR.showWords(); },
            .kept = [this] { return frmTSR.keepsShortcuts(); }};
}

void Menus::load() {
    frmTSR.Form_Load();
    if (keys_ != nullptr) {
        frmTSR.m_Menus.hWndKeyOwner(keys_);
    }
    try {
        frmTSR.loadShortcuts(paths_.of(host::DataItem::Shortcuts));
    } catch (...) {
        errors_.log(config::currentError(), config::player("Load"));
    }
}

void Menus::saveShortcuts() {
    try {
        frmTSR.saveShortcuts(paths_.of(host::DataItem::Shortcuts));
    } catch (...) {
        errors_.log(config::currentError(), config::player("kill process"));
    }
}

} // namespace tovik::app
