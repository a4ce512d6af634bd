// SPDX-License-Identifier: GPL-3.0-or-later
// Moves on when a track is mute. Interface thread.
#pragma once

#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/Crossfade.h"
#include "player/TrackEnd.h"

#include <cstdint>
#include <memory>

namespace tovik::player {

class SilenceSkip {
public:
    /// All of them outlive the object. While `crossfade` runs, nothing is taken for silence.
    SilenceSkip(const Core& core, const Crossfade& crossfade);

    /// Who is told that a track is over; before anything ticks. Outlives the object.
    void setEnd(TrackEnd& end) { end_ = &end; }

    static constexpr int kSldTimerMs = 100;

    /// Lets `sldTimer` tick while the mode is on; its tick would do nothing otherwise. With
    /// `Comfort::readsThreshold` it reads the threshold for that, and raises what that raises.
    void watch();

    [[nodiscard]] bool watches() const { return sldTimer_->enabled(); }

    /// The tick of `sldTimer`. It carries on behind a figure that cannot be had.
    void SLD_Timer();

    /// Takes the threshold from "SLDT". Raises 94 and 13 like a missing setting and one that is no
    /// number.
    void readThreshold();

    /// The switch of the mode. Switching it on reads the threshold from "SLDT". Raises 94 and 13
    /// like a missing setting and one that is no number.
    void button_sld();

private:
    [[nodiscard]] bool opened() const;
    void endSilence();

    const Core& core_;
    TrackEnd* end_ = nullptr;
    const Crossfade& crossfade_;
    CBASS_TIME time_{core_.sound};
    std::unique_ptr<host::Timer> sldTimer_;

    /// "SLDT" as the button read it last. A deliberate oddity: it is not read at the start, so a
    /// mode that was left on at the last exit works with 0 until the button is used.
    std::int16_t silenceThreshold_ = 0;
};

/// From which share of a track on (0: the start, 1: the end) silence counts. A deliberate oddity:
/// the percentage is rounded to a whole share, so up to 50 it counts anywhere in the track, which
/// skips a track with a second of silence at its start, and from 51 to 100 only at the very end.
[[nodiscard]] std::int16_t silenceCountsFrom(std::int16_t percent);

} // namespace tovik::player
