// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what moves with the music: which visualisation is on, and when it starts and ends.
// Interface thread.
#pragma once

#include "app/SpectrumElement.h"
#include "commands/Commands.h"
#include "vis/modSpectrum.h"

namespace tovik::app {

class Visuals : private player::TrackEvents {
public:
    /// All of them outlive the wing.
    Visuals(const player::Core& core, const window::PlayerWindow& window,
            window::MainElements& elements, ui::PictureStore& pictures);
    ~Visuals() override;
    Visuals(const Visuals&) = delete;
    Visuals& operator=(const Visuals&) = delete;

    void bind(commands::Commands& commands);

    /// To be called whenever the window may have come in sight.
    void stirVisualisation() override { spectrum.stir(); }

    // Steps of the start and the end --------------------------------------------------------------

    void readSpeed();

    /// What the settings name: 0 is the built-in spectrum. A plug-in that is not there selects none
    /// and stays in the settings until the user chooses.
    void select();

    void free();

private:
    SpectrumElement area_; // before what draws into it

public:
    vis::modSpectrum spectrum;

private:
    void restartVisualisation() override;
    void stopVisualisation() override;
    void choose(std::int16_t number);

    const player::Core& core_;
};

} // namespace tovik::app
