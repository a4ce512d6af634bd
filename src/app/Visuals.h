// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what moves with the music: which visualisation is on, when it starts and ends, and
// where it is drawn. Interface thread.
#pragma once

#include "app/FullScreenArea.h"
#include "app/VisualElement.h"
#include "commands/Commands.h"
#include "config/MultiLNG.h"
#include "host/Host.h"
#include "vis/modSpectrum.h"
#include "vis/SonVis.h"
#include "vis/VisualShelf.h"
#include "window/frmTSR.h"
#include "window/MainElements.h"
#include "window/VisualInput.h"

#include <memory>
#include <string>

namespace tovik::app {

class Visuals final : private player::TrackEvents, public window::VisualInput {
public:
    /// All of it outlives the wing.
    struct Needs {
        const player::Core& core;
        host::Host host; ///< references, whose owner outlives the wing
        window::PlayerWindow& window;
        window::MainElements& elements;
        ui::PictureStore& pictures;
        const config::MultiLNG& language;
        window::frmTSR& menus;
        std::string shippedVisuals; ///< the folder of the plug-ins that came along; empty: none
    };

    explicit Visuals(Needs needs);
    ~Visuals() override;
    Visuals(const Visuals&) = delete;
    Visuals& operator=(const Visuals&) = delete;

    void bind(commands::Commands& commands);

    /// To be called whenever the window may have come in sight.
    void stirVisualisation() override;

    /// Of all visualisations, in milliseconds from one picture to the next.
    void setSpeed(int milliseconds);

    void clickVisual(int x, int y) override;

    /// Shows what runs on the whole screen, or in the window again.
    void doubleClickVisual() override;

    /// From now on it is drawn in that area of a window, which outlives the wing, or in the main
    /// window's for null. One that is on goes on there, a plug-in from its beginning; nothing is
    /// started that is not chosen.
    void showIn(VisualElement* area);

    [[nodiscard]] bool onFullScreen() const { return full_ != nullptr; }

    // Steps of the start and the end --------------------------------------------------------------

    void readSpeed();

    /// What the settings name: 0 is the built-in spectrum, 3 and above are plug-ins, which are
    /// waited for. One that is not there selects none and stays in the settings until the user
    /// chooses.
    void select();

    void free();

private:
    VisualElement area_; // before what draws into it
    VisualElement* current_ = &area_;

public:
    vis::modSpectrum spectrum;
    vis::SonVis sonVis;

private:
    void restartVisualisation() override;
    void stopVisualisation() override;
    void choose(int number);
    void take();
    void look();
    void filled();
    void lost();
    void leaveFullScreen();
    [[nodiscard]] const sound::VisualFile* chosenFile() const;

    Needs n_;
    vis::VisualShelf shelf_;
    std::unique_ptr<host::Timer> later_; ///< looks for plug-ins once the start is over
    std::unique_ptr<FullScreenArea> full_;
};

} // namespace tovik::app
