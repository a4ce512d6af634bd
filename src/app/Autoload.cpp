// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Autoload.h"

namespace tovik::app {

Autoload::Autoload(const LastSession::Needs& session, Lists& lists)
    : core_(session.core), lists_(lists), rows_(session.playback.rows), lastSession_(session),
      Timer4_(core_.timers.makeTimer([this] { Timer4(); })) {}

void Autoload::begin() {
    Timer4_->setInterval(kTimer4Ms);
    Timer4_->setEnabled(true);
}

void Autoload::Timer4() {
    config::guard(core_.errors, config::player("Timer4"), [this] {
        if (!core_.state.LoadFinished) {
            return;
        }
        // A start with a file never reads the saved list, so there is nothing to wait for.
        Timer4_->setEnabled(false);
        if (core_.state.NoCommandLine) {
            autoload_playlist();
        }
    });
}

void Autoload::autoload_playlist() {
    config::guard(core_.errors, config::player("Autoload_Playlist"), [this] {
        lists_.load();
        lastSession_.restore();
        if (core_.state.FirstRun) {
            // The very first start plays the piece that came with the program.
            rows_.playItem(0);
        }
    });
}

} // namespace tovik::app
