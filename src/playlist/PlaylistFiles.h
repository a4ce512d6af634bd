// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing playlist files: the part of the player's general services that lists need.
// Interface thread.
#pragma once

#include "base/Comfort.h"
#include "host/MessagePump.h"
#include "host/Paths.h"
#include "playlist/ListEntry.h"
#include "playlist/ListForm.h"
#include "playlist/ListManner.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tovik::playlist {

class stdSS;

/// What stands in a list file.
struct ListContent {
    std::vector<ListEntry> entries{};
    bool isList = true; ///< false: the text is no playlist at all
};

/// The rows of a list as entries.
[[nodiscard]] std::vector<ListEntry> entriesOf(const stdSS& rows);

/// Reads into one list and saves it between sessions. A read gives way to the rest of the program
/// again and again, so the list may change meanwhile; the file itself is read on a thread of its
/// own.
class PlaylistFiles {
public:
    /// What a reader answers when it came to its end.
    static constexpr int kRead = 1;

    /// References must outlive the object.
    PlaylistFiles(stdSS& list, host::MessagePump& pump, const host::Paths& paths);

    /// What of its behaviour is kinder; outlives the object. Nothing is without it.
    void obey(const base::Comfort& comfort) noexcept { comfort_ = &comfort; }

    /// Stops the automatic load. A deliberate oddity: nothing ever clears it, so once the load was
    /// stopped, every further M3U read of the session ends at its first "#EXTINF" line, unless
    /// `Comfort::readsOnAfterStop` says otherwise.
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

    /// Opens a list file of that form by `open_m3u`, by `Openpls2`, or, for an XSPF file, as the
    /// former: the rows are appended.
    void open(const std::string& path, ListForm form) { open(path, form, list_); }

    /// The same into another list. What was read before something is raised is in it.
    void open(const std::string& path, ListForm form, stdSS& into);

    /// What a list file of any form holds, without a change of the list. Which form tells the
    /// extension (M3U where it tells none), and with `Comfort::opensMoreLists` the text before
    /// that. Nothing when the program is ending. Raises as `open_m3u`.
    [[nodiscard]] std::optional<ListContent> readList(const std::string& path);

    /// Appends entries, all at once.
    void append(std::span<const ListEntry> entries) { append(entries, list_); }

    /// The list is emptied by the user: the automatic load ends there, and what is in the list
    /// from now on is what the end saves.
    void stopAutoload() noexcept;

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
    static constexpr base::Comfort kNoComfort{};

    static void append(std::span<const ListEntry> entries, stdSS& into);

    /// How a list is read that lies there.
    [[nodiscard]] ListManner mannerOf(const std::string& path) const;

    /// Reads an M3U file as `open_m3u` does.
    int readM3u(const std::string& path, const ListManner& manner, const bool& stop, stdSS& into);

    /// Whether an M3U file ends at its first "#EXTINF" line.
    [[nodiscard]] const bool& stopOfM3u() const noexcept;

    const base::Comfort* comfort_ = &kNoComfort;
    stdSS& list_;
    host::MessagePump& pump_;
    const host::Paths& paths_;
    bool autoloading_ = false; ///< it began, and has not come to an end
};

} // namespace tovik::playlist
