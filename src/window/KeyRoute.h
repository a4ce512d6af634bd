// SPDX-License-Identifier: GPL-3.0-or-later
// The way of a key that no control took, the same from every window: accelerators of menus, the
// keyboard map, the menu key. Interface thread.
#pragma once

#include "commands/ClsShortcut.h"
#include "config/Errors.h"
#include "ui/MessageWindow.h"
#include "ui/WindowInput.h"
#include "window/MenuPopper.h"

namespace tovik::window {

class KeyRoute {
public:
    /// All of them outlive the route; null: there are no menus.
    KeyRoute(const commands::ClsShortcut& keys, const config::Errors& errors, MenuPopper* menus);
    KeyRoute(const KeyRoute&) = delete;
    KeyRoute& operator=(const KeyRoute&) = delete;

    /// Where keys go. Its own procedure is the keyboard map; who stands in front of it gets them
    /// first (`ui::messages::kKeyDown`: key code and shift state as the map has them).
    [[nodiscard]] ui::MessageWindow& window() { return window_; }

    [[nodiscard]] const commands::Commands& commands() const { return keys_.commands(); }

    /// Whether the key was used. The menu key pops up the main menu below that box of the window
    /// that is in use.
    [[nodiscard]] bool keyDown(const ui::KeyEvent& event, const ui::Box& menuPlace);

    /// The accelerators of the menus come before what lists and buttons do with a key.
    [[nodiscard]] bool claimsKey(const ui::KeyEvent& event) const;

private:
    [[nodiscard]] bool popUpByKey(const ui::KeyEvent& event, const ui::Box& place);

    const commands::ClsShortcut& keys_;
    const config::Errors& errors_;
    MenuPopper* menus_;
    ui::MessageWindow window_;
};

} // namespace tovik::window
