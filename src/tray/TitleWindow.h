// SPDX-License-Identifier: GPL-3.0-or-later
// The title popup on the screen: a bar that takes neither the keyboard nor the mouse. Where that
// is wanted, or a compositor would place it at its own will, a notification of the desktop takes
// its place. Interface thread.
#pragma once

#include "tray/TitleNotice.h"
#include "window/NotifyArea.h"

#include <functional>
#include <memory>
#include <QRect>
#include <QScreen>
#include <QWidget>

namespace tovik::tray {

/// Where a popup of that size stands: in the corner of `room`, which is what panels leave of
/// `screen`, that is the nearest one to the icon; with an empty one at the side of a panel above
/// or below, at the bottom without any.
[[nodiscard]] QRect cornerFor(QSize popup, const QRect& screen, const QRect& room,
                              const QRect& icon);

class TitleWindow final : public window::TitlePopup {
public:
    /// `screen` tells the one with the player, `icon` where the icon in the tray is, empty where
    /// that is not known; the bus outlives the window.
    TitleWindow(SessionBus& bus, std::function<QScreen*()> screen, std::function<QRect()> icon);
    ~TitleWindow() override;

    void show(const window::TitleBar& bar) override;
    void hide() override;

    void setKey(std::function<void(int keyCode)> key) override { key_ = std::move(key); }

private:
    class Bar;

    TitleNotice notice_;
    std::function<QScreen*()> screen_;
    std::function<QRect()> icon_;
    std::function<void(int)> key_;
    std::unique_ptr<Bar> bar_; ///< made at the first text
};

} // namespace tovik::tray
