// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's mouse and keys do on the main window. Interface thread.
#pragma once

#include "commands/ClsShortcut.h"
#include "player/Core.h"
#include "ui/WindowInput.h"
#include "window/EqualizerInput.h"
#include "window/Grips.h"
#include "window/KeyRoute.h"
#include "window/MainBars.h"
#include "window/MainButtons.h"
#include "window/MainElements.h"
#include "window/Panels.h"
#include "window/PlayerWindow.h"
#include "window/VisualInput.h"

namespace tovik::window {

/// What the input works with; all of it outlives it.
struct MainInputParts {
    const player::Core& core;
    MainElements& elements;
    const commands::ClsShortcut& keys;
    Grips grips;
    Panels& panels;
    PlayerWindow& window;
    MenuPopper* menus = nullptr; ///< null: a right click shows no menu
};

class MainInput final : public ui::WindowInput {
public:
    explicit MainInput(const MainInputParts& parts);

    /// The way that the keys of all windows go.
    [[nodiscard]] KeyRoute& keys() { return keys_; }

    /// Where they go.
    [[nodiscard]] ui::MessageWindow& keyWindow() { return keys_.window(); }

    /// Who gets what the mouse does on the area of the visualisation; it outlives the input.
    void tellVisual(VisualInput& visual) { visual_ = &visual; }

    void mouseDown(const ui::PointerEvent& event) override;
    void mouseMove(const ui::PointerEvent& event) override;
    void mouseUp(const ui::PointerEvent& event) override;

    /// On a digit: played or left. On a slider: to the middle. On the visualisation: the whole
    /// screen.
    void doubleClick(const ui::PointerEvent& event) override;

    /// On a slider, that; anywhere else the volume.
    void wheel(const ui::PointerEvent& event, double notches) override;

    void pointerEntered(ui::ElementAddress element) override { sliders_.pointerEntered(element); }

    void pointerLeft(ui::ElementAddress element) override { sliders_.pointerLeft(element); }

    bool keyDown(const ui::KeyEvent& event) override;

    /// The accelerators of the menus come before what lists and buttons do with a key.
    [[nodiscard]] bool claimsKey(const ui::KeyEvent& event) const override;
    void windowMoved() override;
    void closeRequested() override;

private:
    void press(const PressButton& button, bool pressed);
    void pressAt(const ui::PointerEvent& event);
    void popUpMenu(const ui::PointerEvent& event) const;
    void moveTo(const ui::PointerEvent& event);
    void releaseAt(const ui::PointerEvent& event);
    void click(const ui::PointerEvent& event);

    MainInputParts p_;
    MainBars bars_;
    EqualizerInput sliders_;
    KeyRoute keys_;
    VisualInput* visual_ = nullptr;
};

} // namespace tovik::window
