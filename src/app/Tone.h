// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the equalizer: its curve, where that is kept, and the dialog with its presets.
// Interface thread.
#pragma once

#include "commands/Commands.h"
#include "host/Dialogs.h"
#include "player/Core.h"
#include "player/Equalizer.h"
#include "player/EqualizerFiles.h"
#include "player/EqualizerStore.h"
#include "player/frmLoadPreset.h"
#include "player/StoredSettings.h"
#include "window/WindowOpener.h"

namespace tovik::app {

/// The parts are used as they are.
class Tone {
public:
    /// All of them outlive the wing.
    Tone(const player::Core& core, player::StoredSettings& stored, host::Dialogs& dialogs,
         window::WindowOpener& windows);
    Tone(const Tone&) = delete;
    Tone& operator=(const Tone&) = delete;

    void bind(commands::Commands& commands);

    // Steps of the start and the end --------------------------------------------------------------

    void restoreEqualizer();
    void saveEqualizer();

    player::Equalizer equalizer;
    player::EqualizerStore store;
    player::EqualizerFiles files;
    player::frmLoadPreset loadPreset;

private:
    const player::Core& core_;
    player::StoredSettings& stored_;
    window::WindowOpener& windows_;
};

} // namespace tovik::app
