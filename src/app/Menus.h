// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the menus: their host, the commands that pop them up or act on the list that was
// asked, and the file of their accelerators. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "config/Errors.h"
#include "host/Paths.h"
#include "preferences/ShortcutList.h"
#include "window/frmTSR.h"
#include "window/MainElements.h"

namespace tovik::app {

class Menus {
public:
    /// All of them outlive the wing.
    Menus(commands::Commands& commands, const config::MenuTexts& texts,
          window::PlayerWindow& window, const config::Errors& errors, const host::Paths& paths);
    Menus(const Menus&) = delete;
    Menus& operator=(const Menus&) = delete;

    /// `keys` is the window whose keys are looked at for accelerators.
    void bind(commands::Commands& commands, const window::MainElements& elements,
              ui::MessageWindow& keys);

    /// The accelerators, for who changes them.
    [[nodiscard]] preferences::AcceleratorMenus accelerators();

    // Steps of the start and the end --------------------------------------------------------------

    /// A file of accelerators that cannot be read or is none is logged and left as it is.
    void load();

    /// One that cannot be written is logged, too: more is saved behind it.
    void saveShortcuts();

    window::frmTSR frmTSR;

private:
    const commands::Commands& commands_;
    const config::Errors& errors_;
    const host::Paths& paths_;
    ui::MessageWindow* keys_ = nullptr;
};

} // namespace tovik::app
