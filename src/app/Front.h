// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the main window: its view, and what start, end and commands do with it. Interface
// thread.
#pragma once

#include "commands/Commands.h"
#include "config/Errors.h"
#include "config/MultiLNG.h"
#include "player/StoredSettings.h"
#include "window/MainView.h"
#include "window/SpareSkin.h"

#include <functional>
#include <string>

namespace tovik::app {

class Front {
public:
    /// All of them outlive the wing. `shippedSkin` is the package that came with the program;
    /// empty: none did.
    Front(const window::MainView::Needs& needs, player::StoredSettings& stored,
          config::MultiLNG& language, const std::string& shippedSkin);
    Front(const Front&) = delete;
    Front& operator=(const Front&) = delete;

    void bind(commands::Commands& commands);

    /// What the user can do now; to be called when all commands are bound.
    void enableButtons(const commands::Commands& commands);

    /// Where the window stands goes into the state, if it was ever shown.
    void notePlace();

    /// The record of comfort became another.
    void followComfort();

    // Steps of the start and the end --------------------------------------------------------------

    void loadSkin();
    void choosePanel();
    void showSplash();
    void keepFaces();
    void shapeWindow();
    void applyTaskbar();
    void drawEqualizer();
    void showVolume();
    void showModes();
    void showQuickList();
    void endSplash();
    void showWindow();
    void showBalanceText();
    void applyTopmost();
    void hideWindow();

    window::MainView view;
    window::SpareSkin spare;
    player::Knobs knobs; ///< what of the sound the view turns

    /// Told when the user chose a panel, which stands in the main window; none: nobody is.
    std::function<void()> panelChosen;

    /// Told of a package, by its path, that is no skin's or not a whole one; none: nobody is.
    std::function<void(const std::string&)> foreignSkin;

private:
    void bindPanels(commands::Commands& commands);
    void bindModes(commands::Commands& commands);
    void mnuTop();
    void readPlaces();
    [[nodiscard]] bool staysOnTop();

    host::Host host_;
    const config::Errors& errors_;
    player::PlayerState& state_;
    window::PlayerWindow& window_;
    player::StoredSettings& stored_;
    config::AttachedTexts words_;
};

} // namespace tovik::app
