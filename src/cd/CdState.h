// SPDX-License-Identifier: GPL-3.0-or-later
// What the parts around audio CDs share: the current drive, and the form in which the user names
// disc and tracks. Interface thread.
#pragma once

#include "sound/api/Types.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tovik::cd {

struct CdState {
    std::int32_t CDDrive = 0;                  ///< the current one, as the sound library counts
    std::int32_t CDDriveLast = -1;             ///< the highest one found; -1: there is none
    sound::Handle CDStream = sound::kNoHandle; ///< of the running rip
    bool CancelRip = false;                    ///< set by the cancel button
};

/// What stands in the dialog of disc information, shown or not. Texts are UTF-8.
struct DiscForm {
    std::array<std::string, 2> Text1; ///< album, year
    std::array<std::string, 3> Text2; ///< artist, text of the selected track, genre
    std::vector<std::string> List1;   ///< names of the tracks, from track 0 on
    std::int16_t V1Genre = -1;        ///< of tag version 1; -1: none
    std::int16_t V2Genre = -1;        ///< of tag version 2; -1: none

    /// Called by who has changed the form from outside; the dialog listens while it is open.
    std::function<void()> changed;

    /// The tracks of a disc were listed: takes what its CD-Text says of the album, both empty where
    /// it has none. What was told before changes nothing, so that what was typed over it stays.
    void tell(const std::string& title, const std::string& artist) {
        if (std::array{title, artist} == told) {
            return;
        }
        told = {title, artist};
        Text1.front() = title;
        Text2.front() = artist;
        if (changed) {
            changed();
        }
    }

    std::array<std::string, 2> told; ///< album and artist, by the disc itself
};

/// The name of a track; empty for one that has none.
[[nodiscard]] inline std::string trackName(const DiscForm& form, std::size_t track) {
    return track < form.List1.size() ? form.List1[track] : std::string();
}

} // namespace tovik::cd
