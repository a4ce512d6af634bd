// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/DesktopShell.h"

#include "tray/DesktopTray.h"
#include "tray/SessionBus.h"
#include "tray/TitleWindow.h"

#include <utility>

namespace tovik::tray {

struct DesktopShell::Parts {
    Parts(const host::Dispatcher& dispatcher, std::function<QScreen*()> screen)
        : tray(bus, dispatcher),
          popup(bus, std::move(screen), [this] { return tray.iconPlace(); }) {}

    SessionBus bus;
    DesktopTray tray;
    TitleWindow popup;
    window::Shell shell{.area = tray, .popup = popup};
};

DesktopShell::DesktopShell(const host::Dispatcher& dispatcher, std::function<QScreen*()> screen)
    : parts_(std::make_unique<Parts>(dispatcher, std::move(screen))) {}

DesktopShell::~DesktopShell() = default;

window::Shell& DesktopShell::shell() {
    return parts_->shell;
}

} // namespace tovik::tray
