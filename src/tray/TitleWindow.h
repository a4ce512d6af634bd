// SPDX-License-Identifier: GPL-3.0-or-later
// The title popup on the screen: a bar that neither takes the keyboard nor the mouse. Where that
// is wanted, or a compositor would place it at its own will, a notification of the desktop takes
// its place. Interface thread.
#pragma once

#include "tray/TitleNotice.h"
#include "window/NotifyArea.h"

#include <functional>
#include <memory>
#include <QScreen>
#include <QWidget>

namespace tovik::tray {

class TitleWindow final : public window::TitlePopup {
public:
    /// `screen` tells the one with the player; the bus outlives the window.
    TitleWindow(SessionBus& bus, std::function<QScreen*()> screen);
    ~TitleWindow() override;

    void show(const window::TitleBar& bar) override;
    void hide() override;

    void setKey(std::function<void(int keyCode)> key) override { key_ = std::move(key); }

private:
    class Bar;

    TitleNotice notice_;
    std::function<QScreen*()> screen_;
    std::function<void(int)> key_;
    std::unique_ptr<Bar> bar_; ///< made at the first text
};

} // namespace tovik::tray
