// SPDX-License-Identifier: GPL-3.0-or-later
// The main window on the screen: the widget that shows the records, and what the logic asks of the
// window itself. Interface thread.
#pragma once

#include "app/frmPlayer.h"
#include "app/MainControls.h"
#include "ui/qt/MenuPictures.h"
#include "ui/qt/SkinWindow.h"
#include "ui/qt/SplashWindow.h"
#include "ui/qt/WindowSight.h"
#include "window/PlayerWindow.h"

#include <memory>

namespace tovik::app {

/// The window as the logic knows it; the widget comes later, with `attach`.
class MainWindow final : public window::PlayerWindow {
public:
    explicit MainWindow(const host::Host& host);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Builds the widget over the player's records.
    void attach(frmPlayer& player);

    /// Takes the widget down, before the player goes. Only the outline may be set afterwards.
    void detach();

    [[nodiscard]] QWidget& widget() { return *skin_; }

    void show() override;
    void hide() override;
    void minimise() override;
    void bringToFront(const std::string& token) override;
    [[nodiscard]] bool visible() const override;
    void showSplash() override;
    void endSplash() override;

    [[nodiscard]] ui::RegionWindow* shape() override { return &outline_; }

    void beginDrag() override;
    void takeFocus() override;
    void setCaption(const std::string& caption) override;
    void setTaskbarButton(bool shown) override;
    void setTopmost(bool topmost) override;
    [[nodiscard]] bool fitsScreen(int width, int height) const override;
    [[nodiscard]] std::uintptr_t handle() const override;

    [[nodiscard]] const menus::MenuImages* menuImages() const override { return &menuImages_; }

    [[nodiscard]] std::optional<ui::Colour> systemColour(int number) const override;
    [[nodiscard]] std::unique_ptr<menus::MenuFacility>
    makeMenus(const menus::cMenus& model, ui::MessageWindow& messages) override;

    [[nodiscard]] bool rightToLeft() const override;

    [[nodiscard]] std::unique_ptr<window::FullScreen>
    makeFullScreen(window::FullScreen::Input input) override;
    void moveTo(int left, int top) override;
    [[nodiscard]] int left() const override;
    [[nodiscard]] int top() const override;

private:
    /// Passes the outline on as long as there is a widget: the player keeps it to its own end.
    class Outline final : public ui::RegionWindow {
    public:
        explicit Outline(MainWindow& window) : window_(window) {}

        void setRegion(const ui::Region* region) override {
            if (window_.skin_) {
                window_.skin_->setRegion(region);
            }
        }

    private:
        MainWindow& window_;
    };

    host::Host host_;
    ui::MenuPictures menuImages_;
    Outline outline_{*this};
    std::unique_ptr<MainControls> controls_; ///< outlives the widgets, which ask it
    std::unique_ptr<ui::SkinWindow> skin_;
    std::unique_ptr<ui::WindowSight> sight_;
    std::unique_ptr<ui::SplashWindow> splash_;
};

} // namespace tovik::app
