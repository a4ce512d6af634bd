// SPDX-License-Identifier: GPL-3.0-or-later
// The icon in the tray: what the shell is told of it, and the mouse on it. Interface thread.
#pragma once

#include "window/NotifyArea.h"

#include <functional>
#include <string>

namespace tovik::window {

class TrayIcon {
public:
    /// The area outlives the icon; `owner` is the number of the window that it belongs to.
    explicit TrayIcon(NotifyArea& area, std::uintptr_t owner = 0);

    /// The button (1 left, 3 right when it goes down, 2 for the rest of the right one) and whether
    /// it was a double click.
    std::function<void(int button, bool twice)> Mouse;

    /// The last call of the shell succeeded, as far as is known by now: an icon that nobody turned
    /// out to take failed.
    [[nodiscard]] bool State() const {
        return state_ && (!added_ || area_.taken() || area_.asking());
    }

    /// As it was set.
    [[nodiscard]] std::string Tooltip() const { return tooltip_.substr(0, tooltip_.size() - 1); }

    /// The shell gets what fits into 63 bytes, and never half a character.
    void Tooltip(const std::string& text) { tooltip_ = text + '\0'; }

    /// The style, from 1.
    [[nodiscard]] std::int16_t Icon() const { return icon_; }

    void Icon(std::int16_t style) { icon_ = style; }

    void Add() { call(NotifyCommand::add); }

    void Modify() { call(NotifyCommand::modify); }

    void Remove() { call(NotifyCommand::remove); }

    /// The shell's callback: the number of a mouse message, times 15. Others are dropped, and so is
    /// one that comes while another is carried out.
    void MouseMove(std::int32_t x);

private:
    void call(NotifyCommand command);

    NotifyArea& area_;
    std::uintptr_t owner_;
    std::string tooltip_{'\0'};
    std::int16_t icon_ = 1;
    bool state_ = false;
    bool added_ = false; ///< by the last call it is in the tray
    bool busy_ = false;
};

} // namespace tovik::window
