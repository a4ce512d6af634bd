// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Discs.h"

#include "playlist/ListUndo.h"

#include "window/PanelTable.h"

#include <array>
#include <utility>

namespace tovik::app {

using commands::CommandId;

namespace {

/// Behind the first picture of the window: what is loaded for drives would hold it up.
constexpr std::int32_t kFirstLookMs = 500;

constexpr std::array kPlayDrive = {CommandId::playDrive1, CommandId::playDrive2,
                                   CommandId::playDrive3, CommandId::playDrive4,
                                   CommandId::playDrive5};

} // namespace

Discs::Discs(const Needs& needs, const host::Host& host)
    : drives({.tracks = {.core = needs.core,
                         .lstTracks = needs.lstTracks,
                         .state = state,
                         .form = needs.info.form,
                         .dialogs = host.dialogs,
                         .CdDrives = [&freedb = needs.info.freedb] { return freedb.CdDrives(); }},
              .pump = host.pump}),
      core_(needs.core), panels_(needs.panels), watch_({.core = needs.core,
                                                        .transport = needs.playback.transport,
                                                        .dialogs = host.dialogs,
                                                        .language = needs.language}),
      firstLook_(needs.core.timers.makeTimer([this] {
          firstLook_->setEnabled(false);
          drives.beginInit();
      })) {
    firstLook_->setInterval(kFirstLookMs);
    drives.hooks.clrIMG_Click = [&buttons = needs.buttons] { buttons.clrIMG_Click(); };
    drives.hooks.showDrives = [&menus = needs.menus](const std::string& letters) {
        menus.showDrives(letters);
    };
    panels_.switched = [this] { panelSwitched(); };
}

Discs::~Discs() {
    panels_.switched = {};
}

void Discs::bind(commands::Commands& commands) {
    for (std::size_t i = 0; i < kPlayDrive.size(); ++i) {
        commands.bind(
            kPlayDrive.at(i),
            {.run =
                 [this, i] {
                     const playlist::ListUndo::Step step(core_.lists.stdSS);
                     drives.PlayAudioCD(static_cast<std::int32_t>(i));
                 },
             .enabled = [this,
                         i] { return i < drives.cmbCDDrives.entries.size() && !drives.rips(); }});
    }
}

void Discs::lookForDrives() {
    firstLook_->setEnabled(true);
}

/// Drives tell nothing when a disc comes: they are asked while somebody looks.
void Discs::panelSwitched() {
    const bool shown = static_cast<window::Panel>(core_.state.CurrentPanel) == window::Panel::rip;
    if (std::exchange(ripPanel_, shown) == shown) {
        return;
    }
    drives.watch(shown);
    if (shown) {
        drives.beginInit();
    }
}

} // namespace tovik::app
