// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window's logic asks of the window beyond the elements in it. Interface thread.
#pragma once

#include "menus/cMenus.h"
#include "player/PlayerHandle.h"
#include "window/FullScreen.h"
#include "window/ScreenPlace.h"
#include "window/SkinnedWindow.h"

#include <memory>
#include <optional>

namespace tovik::window {

/// As made it does nothing: a player without a window, for renders and tests.
class PlayerWindow : public SkinnedWindow, public player::PlayerHandle {
public:
    /// The small window that stands in for this one in mini mode.
    [[nodiscard]] virtual SkinnedWindow& mini() { return noMini_; }

    /// Shows the splash at once; it goes with `endSplash` or when the window shows.
    virtual void showSplash() {}

    virtual void endSplash() {}

    /// Whether a window of that many skin pixels fits on a screen; without one everything does.
    [[nodiscard]] virtual bool fitsScreen(int /*width*/, int /*height*/) const { return true; }

    /// The images of menus; null without a window. They live as long as it does.
    [[nodiscard]] virtual const menus::MenuImages* menuImages() const { return nullptr; }

    /// What a system colour of the published numbers is on this desktop.
    [[nodiscard]] virtual std::optional<ui::Colour> systemColour(int /*number*/) const {
        return std::nullopt;
    }

    /// Whether the desktop's words run from right to left.
    [[nodiscard]] virtual bool rightToLeft() const { return false; }

    /// Makes the menus of a model whose window gets their messages; null where none can be shown.
    /// Both outlive the result.
    [[nodiscard]] virtual std::unique_ptr<menus::MenuFacility>
    makeMenus(const menus::cMenus& /*model*/, ui::MessageWindow& /*messages*/) {
        return nullptr;
    }

    /// The next menu is asked for by the desktop, from outside of the windows, which wants it at
    /// that place; none: at the pointer.
    virtual void askedForMenu(std::optional<ScreenPlace> /*place*/) {}

    /// A picture over the screen on which the window in use is, of the two; null where there is
    /// none.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who keeps it moves it
    [[nodiscard]] virtual std::unique_ptr<FullScreen> makeFullScreen(FullScreen::Input /*input*/) {
        return nullptr;
    }

private:
    SkinnedWindow noMini_;
};

} // namespace tovik::window
