// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's mouse and keys do on the main window. Interface thread.
#pragma once

#include "commands/ClsShortcut.h"
#include "commands/Commands.h"
#include "config/Errors.h"
#include "ui/WindowInput.h"
#include "window/EqualizerInput.h"
#include "window/MainBars.h"
#include "window/MainButtons.h"
#include "window/MainElements.h"
#include "window/PlayerWindow.h"
#include "window/TimeDisplay.h"
#include "window/VolumeBar.h"

namespace tovik::window {

/// What the input works with; all of it outlives it.
struct MainInputParts {
    MainElements& elements;
    const config::Errors& errors;
    const commands::Commands& commands;
    const commands::ClsShortcut& shortcuts;
    MainBars& bars;
    EqualizerInput& equalizer;
    VolumeBar& volumeBar;
    TimeDisplay& timeDisplay;
    PlayerWindow& window;
};

class MainInput final : public ui::WindowInput {
public:
    explicit MainInput(const MainInputParts& parts) : p_(parts) {}

    void mouseDown(const ui::PointerEvent& event) override;
    void mouseMove(const ui::PointerEvent& event) override;
    void mouseUp(const ui::PointerEvent& event) override;

    /// On a digit: played or left. On a slider: to the middle.
    void doubleClick(const ui::PointerEvent& event) override;

    /// On a slider, that; anywhere else the volume.
    void wheel(const ui::PointerEvent& event, double notches) override;

    bool keyDown(const ui::KeyEvent& event) override;
    void closeRequested() override;

private:
    void press(const PressButton& button, bool pressed);
    void pressAt(const ui::PointerEvent& event);
    void moveTo(const ui::PointerEvent& event);
    void releaseAt(const ui::PointerEvent& event);
    void click(const ui::PointerEvent& event);

    MainInputParts p_;
};

} // namespace tovik::window
