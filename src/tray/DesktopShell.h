// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop that the program runs on, as its logic sees it. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "window/NotifyArea.h"

#include <functional>
#include <memory>

class QScreen;

namespace tovik::tray {

class DesktopShell {
public:
    /// `screen` tells the one with the player; the dispatcher outlives the desktop.
    DesktopShell(const host::Dispatcher& dispatcher, std::function<QScreen*()> screen);
    ~DesktopShell();
    DesktopShell(const DesktopShell&) = delete;
    DesktopShell& operator=(const DesktopShell&) = delete;

    /// Lives as long as the desktop.
    [[nodiscard]] window::Shell& shell();

private:
    struct Parts;

    std::unique_ptr<Parts> parts_;
};

} // namespace tovik::tray
