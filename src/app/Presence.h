// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what the player is on the desktop: which of its two windows is in use and whether it
// is on the screen, the icon in the tray, the title popup. Interface thread.
#pragma once

#include "app/VisualElement.h"
#include "app/Visuals.h"
#include "commands/Commands.h"
#include "player/StoredSettings.h"
#include "window/frmMiniMode.h"
#include "window/frmSysTray.h"
#include "window/frmTitle.h"
#include "window/PlayerWindow.h"

#include <string>

namespace tovik::app {

/// Nobody else shows or hides one of the two windows after the start.
class Presence : private player::TrackEvents {
public:
    /// All of it outlives the wing.
    struct Needs {
        const player::Core& core;
        player::Knobs knobs;
        window::MainView& main;
        window::PlayerWindow& window;
        host::Host host;
        window::MenuPopper& menus;
        Visuals& visuals;
        player::StoredSettings& stored;
        config::Version& version;
        const commands::Commands& commands;
        window::Shell* shell = nullptr;     ///< null: a desktop that offers nothing
        std::string shippedSkin{};          ///< the package that came with the program; empty: none
        window::SpareSkin* spare = nullptr; ///< see `frmMiniMode`
    };

    explicit Presence(const Needs& needs);
    ~Presence() override;
    Presence(const Presence&) = delete;
    Presence& operator=(const Presence&) = delete;

    void bind(commands::Commands& commands);

    /// From one window to the other.
    void enterMiniMode();
    void leaveMiniMode();

    /// The main window is on the screen, whichever of the two was in use and wherever it was.
    void showMainWindow();

    /// Off the screen: hidden while a tray has the icon, else down to the task bar. Where there is
    /// neither, the window stays. With `Comfort::minimisesToTaskBar` the task bar comes first.
    void minimise();

    /// The window in use comes to the screen, and gets the keyboard. The token is what the desktop
    /// gave who asked for it; empty where it gave none.
    void bringToFront(const std::string& token);

    /// Neither window is on the screen, and only the tray brings one back.
    [[nodiscard]] bool hidden() const { return hidden_; }

    /// Shows where the settings say: in the tray, and on the task bar.
    void ApplyShellPresence();

    /// The window of the two that the user has now.
    [[nodiscard]] window::SkinnedWindow& windowInUse();

    // Steps of the start and the end --------------------------------------------------------------

    void showTray();
    void hideTray();
    void hideMini();

private:
    window::NotifyArea noArea_;
    window::TitlePopup noPopup_;
    Needs p_;

public:
    window::frmMiniMode mini;
    window::frmSysTray sysTray;
    window::frmTitle title;

private:
    void showTitlePopup(const std::string& text) override;

    void reportNothing(const std::string& /*format*/, const std::string& /*word*/) override {
        sysTray.tellTitle({});
    }

    void reportTrack(const player::TrackReport& report) override {
        sysTray.tellTitle(report.listTitle);
    }

    void reportFacts(const player::TrackReport& report) override { reportTrack(report); }

    [[nodiscard]] bool wantsTray();
    [[nodiscard]] bool trayHasIcon() const;
    void hide();
    void clickIcon(bool twice);
    void listenToTray();
    void trayChanged();
    void comeBack();
    void showVisualIn(VisualElement* area);

    VisualElement miniArea_;
    bool hidden_ = false;
    bool leaving_ = false; ///< the icon went because the program does
};

} // namespace tovik::app
