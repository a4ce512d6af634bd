// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window's logic asks of the window beyond the elements in it. Interface thread.
#pragma once

#include "menus/cMenus.h"
#include "player/PlayerHandle.h"
#include "ui/cDIBSectionRegion.h"
#include "window/FullScreen.h"

#include <memory>
#include <optional>
#include <string>

namespace tovik::window {

/// As made it does nothing: a player without a window, for renders and tests.
class PlayerWindow : public player::PlayerHandle {
public:
    virtual void show() {}

    virtual void hide() {}

    virtual void minimise() {}

    /// The user asked for the window in use: it is shown, also from the task bar, and gets the
    /// keyboard. The token is what the desktop gave who asked; empty where it gave none.
    virtual void bringToFront(const std::string& /*token*/) {}

    /// Whether anyone can see what moves on it.
    [[nodiscard]] virtual bool visible() const { return true; }

    /// Shows the splash at once; it goes with `endSplash` or when the window shows.
    virtual void showSplash() {}

    virtual void endSplash() {}

    /// Where the outline goes; null without a window that could have one.
    [[nodiscard]] virtual ui::RegionWindow* shape() { return nullptr; }

    /// The window follows the pointer until the button that is held goes up.
    virtual void beginDrag() {}

    virtual void setCaption(const std::string& /*caption*/) {}

    /// Whether the window shows on the task bar.
    virtual void setTaskbarButton(bool /*shown*/) {}

    virtual void setTopmost(bool /*topmost*/) {}

    /// Gives the keyboard to the hidden `Text4`, so that no visible control keeps it.
    virtual void takeFocus() {}

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

    /// A picture over the screen on which the window is; null where there is none.
    [[nodiscard]] virtual std::unique_ptr<FullScreen> makeFullScreen(FullScreen::Input /*input*/) {
        return nullptr;
    }

    /// Left and top in pixels; applied when the window is shown, held to a screen that exists.
    virtual void moveTo(int /*left*/, int /*top*/) {}

    [[nodiscard]] virtual int left() const { return 0; }

    [[nodiscard]] virtual int top() const { return 0; }
};

} // namespace tovik::window
