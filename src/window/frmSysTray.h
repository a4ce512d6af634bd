// SPDX-License-Identifier: GPL-3.0-or-later
// The window that owns the tray icon: it is never seen, and turns what the mouse does on the icon
// into what the player does. Interface thread.
#pragma once

#include "config/Version.h"
#include "player/Core.h"
#include "window/TrayIcon.h"

#include <functional>
#include <memory>

namespace tovik::window {

class frmSysTray {
public:
    /// What the icon does. Each is called through the dispatcher.
    struct Actions {
        std::function<void(bool twice)> left; ///< shows the window, or hides it
        std::function<void()> menu;
    };

    /// How many styles the icon has; a setting beyond them counts as the nearest one.
    static constexpr std::int16_t kStyles = 4;

    /// All of them outlive the window.
    frmSysTray(const player::Core& core, config::Version& version, NotifyArea& area,
               Actions actions);

    /// Puts the icon into the tray. Raises what reading the settings raises.
    void ShowTrayIcon();

    /// Takes it out; nothing when it is not there.
    void HideTrayIcon();

    /// Takes style and tooltip anew; nothing when it is not there.
    void RefreshTrayIcon();

    /// The same when only what plays is another; empty: nothing does.
    void tellTitle(const std::string& title);

    /// Null while there is none.
    [[nodiscard]] TrayIcon* icon() { return icon_.get(); }

    /// What the tooltip says: what plays, or else the program and its year.
    [[nodiscard]] std::string tooltip();

private:
    void takeIcon();

    const player::Core& core_;
    config::Version& version_;
    NotifyArea& area_;
    Actions actions_;
    std::string title_; ///< of what plays
    std::string about_; ///< program and year, once they were read
    std::unique_ptr<TrayIcon> icon_;
};

/// The year at the end of a date as its maker wrote it: its last run of digits.
[[nodiscard]] std::string yearOf(const std::string& date);

} // namespace tovik::window
