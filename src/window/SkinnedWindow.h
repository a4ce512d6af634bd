// SPDX-License-Identifier: GPL-3.0-or-later
// What the logic of any skinned window asks of the window beyond the elements in it. Interface
// thread.
#pragma once

#include "ui/cDIBSectionRegion.h"

#include <string>

namespace tovik::window {

/// As made it does nothing: a window that is not there, for renders and tests.
class SkinnedWindow {
public:
    SkinnedWindow() = default;
    virtual ~SkinnedWindow() = default;
    SkinnedWindow(const SkinnedWindow&) = delete;
    SkinnedWindow& operator=(const SkinnedWindow&) = delete;

    virtual void show() {}

    virtual void hide() {}

    virtual void minimise() {}

    /// The user asked for the window in use: it is shown, also from the task bar, and gets the
    /// keyboard. The token is what the desktop gave who asked; empty where it gave none.
    virtual void bringToFront(const std::string& /*token*/) {}

    /// Whether anyone can see what moves on it.
    [[nodiscard]] virtual bool visible() const { return true; }

    /// How many pixels along a side it has for one of the skin; another screen may change that.
    [[nodiscard]] virtual int density() const { return 1; }

    /// Where the outline goes; null without a window that could have one.
    [[nodiscard]] virtual ui::RegionWindow* shape() { return nullptr; }

    /// The window follows the pointer until the button that is held goes up.
    virtual void beginDrag() {}

    virtual void setCaption(const std::string& /*caption*/) {}

    /// Whether the window shows on the task bar.
    virtual void setTaskbarButton(bool /*shown*/) {}

    virtual void setTopmost(bool /*topmost*/) {}

    /// Gives the keyboard to what holds it unseen, so that no visible control keeps it.
    virtual void takeFocus() {}

    /// Left and top in pixels; applied when the window is shown, held to a screen that exists.
    virtual void moveTo(int /*left*/, int /*top*/) {}

    /// Whether left and top are those of the screen: a Wayland compositor keeps them to itself.
    [[nodiscard]] virtual bool tellsPlace() const { return true; }

    [[nodiscard]] virtual int left() const { return 0; }

    [[nodiscard]] virtual int top() const { return 0; }
};

} // namespace tovik::window
