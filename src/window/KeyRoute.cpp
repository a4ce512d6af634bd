// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/KeyRoute.h"

#include "menus/Accelerator.h"

#include <algorithm>

namespace tovik::window {

namespace {

constexpr int kMenuKey = 0x5D;
constexpr int kF10 = 0x79;

/// Held down, such a key would undo with each repetition what it did.
bool flips(const menus::AcceleratorKey& key) {
    const auto map = commands::ClsShortcut::map();
    const auto row = std::ranges::find_if(
        map, [&](const auto& one) { return one.keyCode == key.keyCode && one.shift == key.shift; });
    return row != map.end() &&
           (row->command == commands::CommandId::pause ||
            commands::commandOf(row->command).kind == commands::CommandKind::toggle);
}

} // namespace

KeyRoute::KeyRoute(const commands::ClsShortcut& keys, const config::Errors& errors,
                   MenuPopper* menus)
    : keys_(keys), errors_(errors), menus_(menus), window_([this](const ui::WindowMessage& key) {
          const bool used =
              keys_.ShortCut(static_cast<int>(key.wParam), static_cast<int>(key.lParam));
          return ui::MessageResult{used ? 1 : 0};
      }) {}

bool KeyRoute::claimsKey(const ui::KeyEvent& event) const {
    return menus_ != nullptr && menus_->hasAccelerator(event);
}

bool KeyRoute::keyDown(const ui::KeyEvent& event, const ui::Box& menuPlace) {
    const menus::AcceleratorKey pressed = menus::acceleratorKeyOf(event);
    if (event.repeated && (claimsKey(event) || flips(pressed))) {
        return true;
    }
    bool used = true;
    config::guard(errors_, config::player("Keydown"), [&] {
        used = window_.send({ui::messages::kKeyDown, pressed.keyCode, pressed.shift}) != 0 ||
               popUpByKey(event, menuPlace);
    });
    return used;
}

bool KeyRoute::popUpByKey(const ui::KeyEvent& event, const ui::Box& place) {
    const bool asks = event.code == kMenuKey || (event.code == kF10 && event.modifiers.shift);
    if (!asks || menus_ == nullptr) {
        return false;
    }
    menus_->popUp(MenuRoot::mnuMain, place);
    return true;
}

} // namespace tovik::window
