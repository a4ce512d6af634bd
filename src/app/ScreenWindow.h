// SPDX-License-Identifier: GPL-3.0-or-later
// A skinned window on the screen: what the logic asks of it, done by its widget. Interface thread.
#pragma once

#include "ui/qt/SkinWindow.h"
#include "ui/qt/WindowSight.h"
#include "window/SkinnedWindow.h"

#include <functional>
#include <memory>

namespace tovik::app {

/// The widget comes with `give` and goes with `take`; in between every call is allowed, before and
/// after only `setRegion`, `visible`, `density` and what says so.
class ScreenWindow {
public:
    ScreenWindow() = default;
    ~ScreenWindow();
    ScreenWindow(const ScreenWindow&) = delete;
    ScreenWindow& operator=(const ScreenWindow&) = delete;

    /// `cameInSight` is called rather too often than too seldom.
    void give(std::unique_ptr<ui::SkinWindow> widget, std::function<void()> cameInSight);

    void take();

    [[nodiscard]] ui::SkinWindow* widget() const { return widget_.get(); }

    [[nodiscard]] ui::RegionWindow& outline() { return outline_; }

    /// As a window, not on the task bar.
    void show();

    [[nodiscard]] bool visible() const;
    [[nodiscard]] int density() const;
    void bringToFront(const std::string& token);
    void setTaskbarButton(bool shown);
    void setTopmost(bool topmost);
    void moveTo(int left, int top);
    [[nodiscard]] static bool tellsPlace();

private:
    /// Passes the outline on as long as there is a widget: who gives it keeps it to its own end.
    class Outline final : public ui::RegionWindow {
    public:
        explicit Outline(ScreenWindow& window) : window_(window) {}

        void setRegion(const ui::Region* region) override {
            if (window_.widget_) {
                window_.widget_->setRegion(region);
            }
        }

    private:
        ScreenWindow& window_;
    };

    Outline outline_{*this};
    std::unique_ptr<ui::SkinWindow> widget_;
    std::unique_ptr<ui::WindowSight> sight_;
};

/// The calls of an interface of the logic, as far as every skinned window answers them alike.
template <typename Interface>
class OnScreen : public Interface {
public:
    void show() override { screen_.show(); }

    void hide() override { screen_.widget()->hide(); }

    void minimise() override { screen_.widget()->showMinimized(); }

    void bringToFront(const std::string& token) override { screen_.bringToFront(token); }

    [[nodiscard]] bool visible() const override { return screen_.visible(); }

    [[nodiscard]] int density() const override { return screen_.density(); }

    [[nodiscard]] ui::RegionWindow* shape() override { return &screen_.outline(); }

    void beginDrag() override { screen_.widget()->beginDrag(); }

    void setCaption(const std::string& caption) override { screen_.widget()->setCaption(caption); }

    void setTaskbarButton(bool shown) override { screen_.setTaskbarButton(shown); }

    void setTopmost(bool topmost) override { screen_.setTopmost(topmost); }

    void moveTo(int left, int top) override { screen_.moveTo(left, top); }

    [[nodiscard]] bool tellsPlace() const override { return ScreenWindow::tellsPlace(); }

    [[nodiscard]] int left() const override { return screen_.widget()->x(); }

    [[nodiscard]] int top() const override { return screen_.widget()->y(); }

protected:
    ScreenWindow screen_;
};

} // namespace tovik::app
