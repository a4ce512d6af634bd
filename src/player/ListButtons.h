// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons that take rows out of the playlist. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/frmOpenDirectory.h"
#include "playlist/PlaylistFiles.h"

namespace tovik::player {

class ListButtons {
public:
    /// All are kept by reference.
    ListButtons(const Core& core, playlist::PlaylistFiles& files, frmOpenDirectory& openDirectory)
        : core_(core), files_(files), openDirectory_(openDirectory) {}

    /// Empties the list. A folder that is being added ends there, and so does the automatic load,
    /// whose list then counts as loaded: what is in the list at the end is saved.
    void clrIMG_Click();

    /// Removes the selected row, and only that, however many are marked; with
    /// `Comfort::deletesMarkedRows` all of them.
    void delIMG_Click();

private:
    const Core& core_;
    playlist::PlaylistFiles& files_;
    frmOpenDirectory& openDirectory_;
};

} // namespace tovik::player
