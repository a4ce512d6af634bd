// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Tone.h"

namespace tovik::app {

using commands::CommandId;

Tone::Tone(const player::Core& core, player::StoredSettings& stored, host::Dialogs& dialogs,
           window::WindowOpener& windows)
    : equalizer(core, dialogs), store(core.settings, equalizer), files(dialogs, store),
      loadPreset(store), core_(core), stored_(stored), windows_(windows) {}

void Tone::bind(commands::Commands& commands) {
    commands.bind(CommandId::equalizer, {.run = [this] { equalizer.flip(); },
                                         .checked = [this] { return core_.state.EqualizerOn; }});
    commands.bind(CommandId::resetEqualizer, [this] { equalizer.resetbt_Click(); });
    commands.bind(CommandId::loadPreset, [this] { windows_.open(window::WindowId::loadPreset); });
    commands.bind(CommandId::loadPresetFile, [this] { files.load_teq(); });
    commands.bind(CommandId::savePresetFile, [this] { files.save_teq(); });
}

void Tone::restoreEqualizer() {
    if (const auto damage = store.autoload_eq()) {
        // The start goes on with the bands that could be read.
        core_.errors.log(*damage, config::player("Load"));
    }
    store.autoload_db();
    store.keepIn(stored_);
}

void Tone::saveEqualizer() {
    store.autosave_eq();
    store.autosave_db();
}

} // namespace tovik::app
