// SPDX-License-Identifier: GPL-3.0-or-later
// On which window system the program shows itself, where there is more than one. Interface thread.
#pragma once

#include <optional>
#include <string>

namespace tovik::app {

/// What the choice depends on; a variable that is not set is empty.
struct WindowSystems {
    std::string chosen;         ///< QT_QPA_PLATFORM, which always wins
    std::string x11;            ///< DISPLAY
    std::string wayland;        ///< WAYLAND_DISPLAY
    std::string session;        ///< XDG_SESSION_TYPE: what the user logged in to
    bool speaksWayland = false; ///< Qt's part for it is installed

    /// Those of this process.
    [[nodiscard]] static WindowSystems current();
};

/// What Qt is to be told; nothing where it finds by itself what is there. On a Wayland desktop
/// that is Wayland, although such desktops offer X11, too: there a window would be enlarged from a
/// smaller one on dense screens. X11 stays the second choice, for a compositor that has gone.
[[nodiscard]] std::optional<std::string> platformFor(const WindowSystems& systems);

/// Tells Qt; before the application is made.
void choosePlatform();

} // namespace tovik::app
