// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing playlist files: the part of the player's general services that lists need.
// Interface thread.
#pragma once

#include "host/MessagePump.h"
#include "host/Paths.h"

#include <string>

namespace tovik::playlist {

class stdSS;

/// Reads into one list and saves it between sessions. A read gives way to the rest of the program
/// again and again, so the list may change meanwhile; the file itself is read on a thread of its
/// own.
class PlaylistFiles {
public:
    /// What a reader answers when it came to its end.
    static constexpr int kRead = 1;

    /// References must outlive the object.
    PlaylistFiles(stdSS& list, host::MessagePump& pump, const host::Paths& paths);

    /// Stops the automatic load. A deliberate oddity: nothing ever clears it, so once the load was
    /// stopped, every further M3U read of the session ends at its first "#EXTINF" line.
    bool StopM3u = false;

    /// The result of `autoload_playlist`: 1 when it came to its end or was stopped. Clearing the
    /// list during the load sets it too.
    int AutosaveOnExit = 0;

    /// Appends the entries of an M3U file, which may begin with a byte order mark. 1, or 0 for an
    /// empty path or when the program is ending. Raises what opening the file raises (53 and
    /// others), TypeMismatch and Overflow for a length that is no number or too big; the rows added
    /// so far stay.
    int open_m3u(const std::string& Path);

    /// Appends the entries of a PLS file, which may begin with a byte order mark. Nothing is
    /// raised: of a file that cannot be read nothing is added.
    void Openpls2(const std::string& Path);

    /// Reads the list of the last session and keeps the result in `AutosaveOnExit`: what a session
    /// that was broken off has left (`ListKeeper`), else what the last one saved. Raises as
    /// `open_m3u`.
    void autoload_playlist();

    /// Saves the list for the next session: the old file or the whole new one, whatever happens.
    /// Raises what the failed write raises.
    void autosave_playlist() const;

    /// Whether the end of the program saves the list: a list that was loaded in part must not
    /// replace the saved one. `DirAddIdle` is true once a folder was added or its dialog left; it
    /// counts for nothing while the automatic load goes on, or if it has failed: clearing the list
    /// ends that.
    [[nodiscard]] bool savesAtExit(bool DirAddIdle) const noexcept;

private:
    stdSS& list_;
    host::MessagePump& pump_;
    const host::Paths& paths_;
    bool autoloading_ = false; ///< it began, and has not come to an end
};

} // namespace tovik::playlist
