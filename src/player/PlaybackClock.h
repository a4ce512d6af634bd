// SPDX-License-Identifier: GPL-3.0-or-later
// What moves while a track plays: the digits and the position mark. Interface thread.
#pragma once

#include "config/Errors.h"
#include "player/CBASS_TIME.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"

namespace tovik::player {

class PlaybackClock {
public:
    /// All of them outlive the clock.
    PlaybackClock(PlayerState& state, CBASS_TIME& time, config::Errors& errors, NowPlaying& playing,
                  NowPlayingView& view)
        : state_(state), time_(time), errors_(errors), playing_(playing), view_(view) {}

    static constexpr int kTimer1Ms = 500;
    static constexpr int kTimer3Ms = 1000;

    /// The digits: time played, or time left with `TimeDisplayMode` 1.
    void Timer1();

    /// The position mark.
    void Timer3();

private:
    PlayerState& state_;
    CBASS_TIME& time_;
    config::Errors& errors_;
    NowPlaying& playing_;
    NowPlayingView& view_;
};

} // namespace tovik::player
