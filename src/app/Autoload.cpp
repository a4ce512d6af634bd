// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Autoload.h"

#include "playlist/FollowedRows.h"

#include <vector>

namespace tovik::app {

Autoload::Autoload(const LastSession::Needs& session, Lists& lists, const StartFile& startFile)
    : core_(session.core), lists_(lists), startFile_(startFile), rows_(session.playback.rows),
      lastSession_(session), Timer4_(core_.timers.makeTimer([this] { Timer4(); })) {}

void Autoload::begin() {
    Timer4_->setInterval(kTimer4Ms);
    Timer4_->setEnabled(true);
}

void Autoload::Timer4() {
    config::guard(core_.errors, config::player("Timer4"), [this] {
        if (!core_.state.LoadFinished) {
            return;
        }
        // Where a start with a file does not read the saved list, there is nothing to wait for.
        Timer4_->setEnabled(false);
        if (startFile_.readsSavedList()) {
            autoload_playlist();
        }
    });
}

void Autoload::autoload_playlist() {
    config::guard(core_.errors, config::player("Autoload_Playlist"), [this] {
        // Rows of the start's files sound already, and are behind the saved ones like all that is
        // added.
        // Which they are by then is asked behind the read, in which the user may change the list.
        const playlist::FollowedRows added(core_.lists.stdSS);
        lists_.load();
        core_.lists.stdSS.moveToEnd(std::vector(added.rows()));
        lists_.undo.forget();
        if (!core_.state.NoCommandLine && core_.state.IsPlaying) {
            return;
        }
        lastSession_.restore();
        if (core_.state.FirstRun && core_.state.NoCommandLine) {
            // The very first start plays the piece that came with the program.
            rows_.playItem(0);
        }
    });
}

} // namespace tovik::app
