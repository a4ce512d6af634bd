// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the digits tell the time played or the time left. Interface thread.
#pragma once

#include "player/NowPlaying.h"
#include "player/PlayerState.h"

#include <cstdint>

namespace tovik::window {

class TimeDisplay {
public:
    static constexpr std::int16_t kElapsed = 0;
    static constexpr std::int16_t kRemaining = 1;

    /// All of them outlive the object.
    TimeDisplay(player::PlayerState& state, player::NowPlaying& playing,
                player::NowPlayingView& view)
        : state_(state), playing_(playing), view_(view) {}

    /// Sets the mode. The minus sign stands before the digits unless it is `kElapsed`; the digits
    /// follow at the clock's next tick.
    void choose(std::int16_t mode) {
        state_.TimeDisplayMode = mode;
        playing_.countsDown = mode != kElapsed;
        view_.showTime(playing_);
    }

    /// A double click on the digits: the other of the two modes.
    void flip() { choose(state_.TimeDisplayMode == kElapsed ? kRemaining : kElapsed); }

private:
    player::PlayerState& state_;
    player::NowPlaying& playing_;
    player::NowPlayingView& view_;
};

} // namespace tovik::window
