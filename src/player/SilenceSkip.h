// SPDX-License-Identifier: GPL-3.0-or-later
// Moves on when a track is mute. Interface thread.
#pragma once

#include "config/Errors.h"
#include "config/Settings.h"
#include "host/Timer.h"
#include "player/CBASS_TIME.h"
#include "player/PlayerState.h"
#include "player/TrackAdvance.h"
#include "playlist/stdSS.h"
#include "sound/SoundLibrary.h"
#include "ui/MainElements.h"

#include <cstdint>

namespace tovik::player {

/// What silence skip works with; all of it outlives it.
struct SilenceSkipParts {
    PlayerState& state;
    sound::SoundLibrary& sound;
    CBASS_TIME& time;
    config::Settings& settings;
    config::Errors& errors;
    playlist::stdSS& list;
    TrackAdvance& advance;
    ui::MainElements& elements;
    host::Timer& sldTimer;
    host::Timer& CrossFade; ///< while it runs, nothing is taken for silence
};

class SilenceSkip {
public:
    explicit SilenceSkip(const SilenceSkipParts& parts) : p_(parts) {}

    static constexpr int kSldTimerMs = 100;

    /// Lets `sldTimer` tick while the mode is on; its tick would do nothing otherwise.
    void watch();

    /// The tick of `sldTimer`. It carries on behind a figure that cannot be had.
    void SLD_Timer();

    /// The switch of the mode. Switching it on reads the threshold from "SLDT". Raises 94 and 13
    /// like a missing setting and one that is no number.
    void button_sld();

private:
    [[nodiscard]] bool opened() const;

    SilenceSkipParts p_;

    /// "SLDT" as the button read it last. A deliberate oddity: it is not read at the start, so a
    /// mode that was left on at the last exit works with 0 until the button is used.
    std::int16_t silenceThreshold_ = 0;
};

/// From which share of a track on (0: the start, 1: the end) silence counts. A deliberate oddity:
/// the percentage is rounded to a whole share, so up to 50 it counts anywhere in the track, which
/// skips a track with a second of silence at its start, and from 51 to 100 only at the very end.
[[nodiscard]] std::int16_t silenceCountsFrom(std::int16_t percent);

} // namespace tovik::player
