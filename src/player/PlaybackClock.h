// SPDX-License-Identifier: GPL-3.0-or-later
// What moves while a track plays, and the decision that it is over. Interface thread.
#pragma once

#include "config/Errors.h"
#include "player/CBASS_TIME.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "player/TrackAdvance.h"

#include <cstdint>

namespace tovik::player {

class PlaybackClock {
public:
    /// All of them outlive the clock.
    PlaybackClock(PlayerState& state, CBASS_TIME& time, config::Errors& errors, NowPlaying& playing,
                  NowPlayingView& view, TrackAdvance& advance)
        : state_(state), time_(time), errors_(errors), playing_(playing), view_(view),
          advance_(advance) {}

    static constexpr int kTimer1Ms = 500;
    static constexpr int kTimer2Ms = 250;
    static constexpr int kTimer3Ms = 1000;

    /// The digits: time played, or time left with `TimeDisplayMode` 1.
    void Timer1();

    /// The words for mode, rate, volume and balance.
    void Timer2();

    /// The position mark, and the end of the track.
    void Timer3();

private:
    void showTime();
    void movePosition();
    template <typename Body>
    void endTrackOnOverflow(Body&& body);

    PlayerState& state_;
    CBASS_TIME& time_;
    config::Errors& errors_;
    NowPlaying& playing_;
    NowPlayingView& view_;
    TrackAdvance& advance_;
};

/// How much of a track was played, in percent, from whole seconds. Raises 6 for 0 of 0, which is
/// what a dead channel tells, and 11 for more of 0.
[[nodiscard]] std::int16_t percentPlayed(std::int32_t position, std::int32_t duration);

/// Whether a track counts as over. A deliberate oddity: the percent is a rounded one, so that a
/// track of 200 seconds or more ends before its end, an hour's one 18 seconds early; a shorter one
/// waits for the next whole second, which can leave a gap; and a module, which repeats, plays on
/// when no tick meets its last half percent.
[[nodiscard]] constexpr bool isEndOfTrack(std::int16_t percent) {
    constexpr std::int16_t kWhole = 100;
    return percent == kWhole;
}

} // namespace tovik::player
