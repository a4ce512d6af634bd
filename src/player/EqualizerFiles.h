// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer's curve to and from a file that the user picks. Interface thread.
#pragma once

#include "host/Dialogs.h"
#include "player/EqualizerStore.h"

namespace tovik::player {

class EqualizerFiles {
public:
    /// Both are kept by reference.
    EqualizerFiles(host::Dialogs& dialogs, EqualizerStore& store)
        : dialogs_(dialogs), store_(store) {}

    /// Asks for a name and writes the curve there; nothing happens when the user cancels. Raises
    /// like `EqualizerStore::save_teq`.
    void save_teq();

    /// Asks for a file and sets the sliders from it. Raises like `EqualizerStore::load_teq`.
    void load_teq();

private:
    host::Dialogs& dialogs_;
    EqualizerStore& store_;
};

} // namespace tovik::player
