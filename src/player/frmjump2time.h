// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that goes to a time of the track, as logic. Interface thread.
#pragma once

#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/Crossfade.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::player {

/// The seconds of a time as people type it: "mm:ss" or "hh:mm:ss", one digit counting like two.
/// Nothing for another text.
[[nodiscard]] std::optional<std::int32_t> typedSeconds(std::string_view text);

class frmjump2time {
public:
    /// Both outlive the object.
    frmjump2time(const Core& core, const Crossfade& crossfade)
        : core_(core), crossfade_(crossfade) {}

    /// The track's length: "mm:ss", with `Comfort::showsHours` "h:mm:ss" where it has hours.
    [[nodiscard]] std::string lbldur() const;

    /// The time that the box is filled with: where the track is, in the same form. Raises 6 beyond
    /// 32767 seconds.
    [[nodiscard]] std::string Text1() const;

    /// Goes to a time; during a crossfade both tracks do. A place behind a track's end is left
    /// unvisited. Whether it was a time: the dialog then closes.
    [[nodiscard]] bool Command1_Click(std::string_view text) const;

private:
    [[nodiscard]] std::string shown(std::int32_t seconds) const;

    const Core& core_;
    const Crossfade& crossfade_;
    CBASS_TIME time_{core_.sound};
};

} // namespace tovik::player
