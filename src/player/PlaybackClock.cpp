// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlaybackClock.h"

#include "base/Numbers.h"
#include "base/TimeText.h"

namespace tovik::player {

namespace {

constexpr std::int16_t kRemaining = 1;

} // namespace

void PlaybackClock::Timer1() {
    config::guard(errors_, config::player("timer1"), [this] {
        if (!state_.IsPlaying || state_.ActiveChannel == ChannelSlot::none) {
            return;
        }
        const std::int32_t position = time_.GetPlayingPos(state_.active());
        const std::int32_t shown = state_.TimeDisplayMode == kRemaining
                                       ? time_.GetDuration(state_.active()) - position
                                       : position;
        playing_.time = base::lastFive(shown);
        playing_.countsDown = state_.TimeDisplayMode != 0;
        view_.showTime(playing_);
    });
}

void PlaybackClock::Timer3() {
    config::guard(errors_, config::player("timer3"), [this] {
        if (!state_.IsPlaying) {
            return;
        }
        const std::int32_t position = time_.GetPlayingPos(state_.active());
        const std::int32_t duration = time_.GetDuration(state_.active());
        playing_.percent =
            duration == 0 ? 0 : base::toInt16(base::divide(position, duration) * 100.0);
        view_.showPosition(playing_);
    });
}

} // namespace tovik::player
