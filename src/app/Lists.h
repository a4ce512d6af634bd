// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the lists: the playlist with its quick list, the tracks of a disc, the stations, and
// the files that keep them. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "host/Host.h"
#include "player/PlayerState.h"
#include "playlist/ListKeeper.h"
#include "playlist/ListMirror.h"
#include "playlist/ListUndo.h"
#include "playlist/PlaylistFiles.h"
#include "playlist/stdSS.h"
#include "tags/FactsDesk.h"

#include <functional>

namespace tovik::app {

/// The parts are used as they are.
class Lists {
public:
    /// `keepsList`: the playlist of this session is kept for the next one. The others outlive the
    /// wing.
    Lists(const host::Host& host, const player::PlayerState& state, bool keepsList);
    Lists(const Lists&) = delete;
    Lists& operator=(const Lists&) = delete;

    /// Binds the undoing, which menus show while the list's own menu is asked for.
    void bind(commands::Commands& commands, std::function<bool()> inMenu);

    /// Reads the saved list. Raises what reading a list raises; the file is then left as it is,
    /// unless the user clears the list and begins another.
    void load();

    // Steps of the start and the end --------------------------------------------------------------

    /// Whether the list of this session is the saved one of the next.
    [[nodiscard]] bool keeps() const { return files.savesAtExit(state_.DirAddIdle); }

    void selectFirstRow();
    void saveList();

    /// The same while the program goes on.
    void saveListSoFar() const;

    playlist::stdSS stdSS;
    playlist::stdSS lstTracks;
    playlist::stdSS RadioLst;
    playlist::ListMirror List1{stdSS};
    playlist::ListUndo undo{stdSS};
    playlist::PlaylistFiles files;
    tags::FactsDesk facts;

private:
    const player::PlayerState& state_;
    playlist::ListKeeper keeper_;
    bool loading_ = false; ///< the saved list
};

} // namespace tovik::app
