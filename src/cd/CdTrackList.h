// SPDX-License-Identifier: GPL-3.0-or-later
// The tracks of a disc as rows of a list, by what the sound library found when it last looked at
// the drive. Interface thread; nothing here waits.
#pragma once

#include "cd/CdState.h"
#include "host/Dialogs.h"
#include "player/Core.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tovik::cd {

/// "mm:ss", and "h:mm:ss" from an hour on.
[[nodiscard]] std::string Seconds2HMS(std::int32_t seconds);

class CdTrackList {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        playlist::stdSS& lstTracks;
        CdState& state;
        DiscForm& form;
        host::Dialogs& dialogs;
        std::function<std::string()> CdDrives; ///< letters of the drives, told apart by "|"
    };

    explicit CdTrackList(Needs needs) : needs_(std::move(needs)) {}

    CdTrackList(const CdTrackList&) = delete;
    CdTrackList& operator=(const CdTrackList&) = delete;

    /// Empties `lstTracks` (with `Comfort::keepsRipList` where that is the target) and appends the
    /// tracks of the current drive's disc to `target`. A drive without a disc gives none.
    /// `addFlag`: their names go to `List1`, too. Raises 9 where the drive has no letter.
    void LoadTrackList(playlist::stdSS& target, bool addFlag);

    /// The same of a disc with CD-Text, `count` tracks: strings of a key, "=" and a value, each
    /// ended by a NUL, up to an empty one. A track of length 0 gets no row. What goes wrong is told
    /// in a box, and the list stays as it was.
    void LoadTrackListFromCDText(std::string_view text, std::int32_t count,
                                 playlist::stdSS& target);

    void clear() { needs_.lstTracks.Clear(); }

    /// A plain list of the names of all tracks that were poured into the playlist.
    [[nodiscard]] const std::vector<std::string>& List1() const { return List1_; }

private:
    [[nodiscard]] std::string currentLetter() const;
    [[nodiscard]] std::int64_t lengthOf(std::int32_t track) const;
    void loadFromText(std::string_view text, std::int32_t count, playlist::stdSS& target);

    Needs needs_;
    std::vector<std::string> List1_;
};

} // namespace tovik::cd
