// SPDX-License-Identifier: GPL-3.0-or-later
// What the parts around audio CDs share: the current drive, and the form in which the user names
// disc and tracks. Interface thread.
#pragma once

#include "sound/api/Types.h"

#include <array>
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
};

} // namespace tovik::cd
