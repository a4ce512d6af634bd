// SPDX-License-Identifier: GPL-3.0-or-later
// The mini window on the screen. Interface thread.
#pragma once

#include "app/ScreenWindow.h"
#include "host/Dispatcher.h"
#include "window/frmMiniMode.h"

namespace tovik::app {

/// The widget is made when the window is first wanted: most sessions never do.
class MiniWindow final : public OnScreen<window::SkinnedWindow> {
public:
    explicit MiniWindow(const host::Dispatcher& dispatcher) : dispatcher_(dispatcher) {}

    /// Whose records the widget will show, which outlive it, and who is told that it may have come
    /// in sight.
    void attach(window::frmMiniMode& mini, std::function<void()> cameInSight);

    /// Takes the widget down, before the player goes. Only the outline may be set afterwards.
    void detach();

    /// On the screen, whether anything covers it or not.
    [[nodiscard]] bool shown() const;

    /// Null until it is wanted.
    [[nodiscard]] const QWidget* widget() const { return screen_.widget(); }

    [[nodiscard]] QRect onScreen(const ui::Box& box) const {
        return screen_.widget()->onScreen(box);
    }

    /// Where the main window stands; the first time this one shows, it comes there.
    std::function<QPoint()> firstPlace;

    void show() override;
    void hide() override;
    void bringToFront(const std::string& token) override;
    void setCaption(const std::string& caption) override;
    void setTaskbarButton(bool shown) override;
    void setTopmost(bool topmost) override;

    /// In the place of that of its first show.
    void moveTo(int left, int top) override;
    [[nodiscard]] ui::RegionWindow* shape() override;

private:
    void make();

    const host::Dispatcher& dispatcher_;
    window::frmMiniMode* mini_ = nullptr;
    std::function<void()> cameInSight_;
    bool placed_ = false;
};

} // namespace tovik::app
