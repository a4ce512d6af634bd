// SPDX-License-Identifier: GPL-3.0-or-later
// The main window on the screen: the widget that shows the records, and what the logic asks of the
// window itself. Interface thread.
#pragma once

#include "app/frmPlayer.h"
#include "app/MainControls.h"
#include "app/MiniWindow.h"
#include "app/ScreenWindow.h"
#include "ui/qt/MenuPictures.h"
#include "ui/qt/SkinMenu.h"
#include "ui/qt/SplashWindow.h"
#include "window/PlayerWindow.h"

#include <memory>

namespace tovik::app {

/// The window as the logic knows it; the widget comes later, with `attach`.
class MainWindow final : public OnScreen<window::PlayerWindow> {
public:
    explicit MainWindow(const host::Host& host);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Builds the widget over the player's records.
    void attach(frmPlayer& player);

    /// Takes the widget down, before the player goes. Only the outline may be set afterwards.
    void detach();

    [[nodiscard]] QWidget& widget() { return *screen_.widget(); }

    [[nodiscard]] window::SkinnedWindow& mini() override { return mini_; }

    void show() override;
    void showSplash() override;
    void endSplash() override;
    void takeFocus() override;
    [[nodiscard]] bool fitsScreen(int width, int height) const override;
    [[nodiscard]] std::uintptr_t handle() const override;

    [[nodiscard]] const menus::MenuImages* menuImages() const override { return &menuImages_; }

    [[nodiscard]] std::optional<ui::Colour> systemColour(int number) const override;
    [[nodiscard]] std::unique_ptr<menus::MenuFacility>
    makeMenus(const menus::cMenus& model, ui::MessageWindow& messages) override;

    [[nodiscard]] bool rightToLeft() const override;

    void askedForMenu(std::optional<window::ScreenPlace> place) override;

    [[nodiscard]] std::unique_ptr<window::FullScreen>
    makeFullScreen(window::FullScreen::Input input) override;

    /// That the window in use is on; null without any.
    [[nodiscard]] QScreen* screen() const;

private:
    [[nodiscard]] QRect onScreen(const menus::MenuPlace& place) const;

    host::Host host_;
    ui::MenuPictures menuImages_;
    MiniWindow mini_;
    std::unique_ptr<MainControls> controls_; ///< outlives the widgets, which ask it
    std::unique_ptr<ui::SplashWindow> splash_;
    std::optional<ui::OutsidePlace> asked_; ///< for the next menu
};

} // namespace tovik::app
