// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as logic: its records and pictures, the parts that draw them and those that take
// the user's hands. Needs no window system. Interface thread.
#pragma once

#include "commands/ClsShortcut.h"
#include "host/Host.h"
#include "player/Knobs.h"
#include "ui/ImgScroller.h"
#include "window/ElementActions.h"
#include "window/EqualizerSliders.h"
#include "window/FlatFaces.h"
#include "window/MainDisplay.h"
#include "window/MainInput.h"
#include "window/MainSkin.h"
#include "window/MainTexts.h"
#include "window/ModeFaces.h"
#include "window/Panels.h"
#include "window/PositionBar.h"
#include "window/RotatingCaption.h"
#include "window/SkinInput.h"
#include "window/TimeDisplay.h"

#include <functional>
#include <string_view>

namespace tovik::window {

/// The parts are used as they are.
struct MainView {
    /// What the window shows and drives; all of it outlives the view.
    struct Needs {
        const player::Core& core;
        player::Knobs knobs;
        const commands::Commands& commands;
        PlayerWindow& window;
        const host::Host& host;
        MenuPopper* menus = nullptr; ///< null: there are no menus
    };

    explicit MainView(const Needs& needs);
    ~MainView();
    MainView(const MainView&) = delete;
    MainView& operator=(const MainView&) = delete;

    /// Cuts the outline of the window out of its ground.
    void shapeWindow();

    /// The four modes and that of the clock, as the state has them.
    void showModes();

    /// The words that stand in the display follow the language.
    void showWords();

    /// Gets the title as far as it has moved, beside the window; none: nobody does.
    std::function<void(std::u32string_view)> titleElsewhere;

    const player::Core& core;
    PlayerWindow& window;

    MainElements elements{mainLayout()};
    ui::PictureStore pictures;
    MainTexts texts{elements};
    TextFields fields{elements, pictures};
    ui::ImgScroller scroller;
    MainDisplay display;
    ModeFaces modes;
    EqualizerSliders sliders;
    VolumeBar volumeBar;
    BalanceBar balanceBar;
    PositionBar positionBar;
    Grips grips;
    RotatingCaption caption;
    Panels panels;
    TimeDisplay timeDisplay;
    commands::ClsShortcut shortcuts;
    MainInput input;
    ElementActions access;
    MainSkin skin;
    FlatFaces flatFaces;
    SkinInput skinInput; ///< what the mouse and the keys reach first

private:
    /// Draws the title as far as it has moved.
    void drawTitle(std::u32string_view characters);

    ui::cDIBSectionRegion shape_;
};

} // namespace tovik::window
