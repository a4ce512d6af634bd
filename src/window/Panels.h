// SPDX-License-Identifier: GPL-3.0-or-later
// The panels of the main window: one surface whose content changes by showing and hiding.
// Interface thread.
#pragma once

#include "player/Core.h"
#include "window/MainElements.h"
#include "window/PanelTable.h"
#include "window/PlayerWindow.h"

#include <functional>
#include <memory>
#include <string_view>

namespace tovik::window {

class Panels {
public:
    /// All of them outlive the object.
    Panels(const player::Core& core, MainElements& elements, PlayerWindow& window);

    static constexpr int kTimer6Ms = 1;

    /// Shows the panel at the place of the first "1" in the mask: "10000" main, "01000"
    /// equalizer, "00100" playlist, "00010" rip, "00001" radio. Any other mask does nothing, nor
    /// does any while `PanelLock` is held. Whatever fails half way is logged and left so.
    void Switch_Win(std::string_view mask);

    /// Called when a panel was switched to; may be empty.
    std::function<void()> switched;

    /// The tick of `Timer6`: shows the list of stations on its panel and hides it on the others. It
    /// ticks once after a switch, since nothing else changes what it looks at.
    void Timer6();

    /// Each tab gets its up face, that of the current panel its down face.
    void RefreshTabs();

    /// Lays out the main panel for an open or a closed quick list, also while another one shows.
    void ApplyQuickList();

    /// Opens or closes the quick list.
    void FlipQuickList();

    // The mouse over a tab ------------------------------------------------------------------------

    /// Gives the tab its over face, whether it is the current one or not. A deliberate oddity: the
    /// current one then looks as if it were not pressed, unless `Comfort::keepsCurrentTab` leaves
    /// it as it is. Not a tab: nothing.
    void hoverTab(MainElement name);

    /// A panel's tab was clicked; the preferences' tab has calls of its own.
    void clickTab(MainElement name);

    /// Runs `dialog`, which returns when the preferences are closed. Meanwhile no panel can be
    /// switched. A deliberate oddity: the tab of the current panel shows up, not down, until the
    /// mouse leaves what it is over or passes over a tab, unless `Comfort::pressesTabAtOnce` has it
    /// pressed.
    void pressPreferences(const std::function<void()>& dialog);
    void releasePreferences();

private:
    void showTab(const Tab& tab, std::size_t face, bool down);

    const player::Core& core_;
    player::PlayerState& state_;
    MainElements& elements_;
    PlayerWindow& window_;
    std::unique_ptr<host::Timer> Timer6_;
};

} // namespace tovik::window
