// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlaybackClock.h"

#include "base/Numbers.h"
#include "base/TimeText.h"

namespace tovik::player {

namespace {

constexpr std::int16_t kRemaining = 1;

} // namespace

std::int16_t percentPlayed(std::int32_t position, std::int32_t duration) {
    return base::toInt16(base::divide(position, duration) * 100.0);
}

/// A position that no 16 bits hold and a channel that is dead both raise 6, and both count as the
/// end of a track.
template <typename Body>
void PlaybackClock::endTrackOnOverflow(Body&& body) {
    try {
        body();
    } catch (const base::RuntimeError& error) {
        if (error.number() != static_cast<int>(base::ErrorNumber::Overflow)) {
            throw;
        }
        advance_.Next_track();
    }
}

void PlaybackClock::Timer1() {
    config::guard(errors_, config::player("timer1"), [this] {
        if (state_.IsPlaying && state_.ActiveChannel != ChannelSlot::none) {
            endTrackOnOverflow([this] { showTime(); });
        }
    });
}

void PlaybackClock::showTime() {
    const std::int32_t position = time_.GetPlayingPos(state_.active());
    const std::int32_t shown = state_.TimeDisplayMode == kRemaining
                                   ? time_.GetDuration(state_.active()) - position
                                   : position;
    playing_.time = base::lastFive(shown);
    playing_.countsDown = state_.TimeDisplayMode != 0;
    view_.showTime(playing_);
}

void PlaybackClock::Timer2() {
    config::guard(errors_, config::player("timer2"), [this] {
        playing_.mode = state_.TrackInfoMode;
        playing_.infoText = state_.TrackInfoText;
        view_.showFormat(playing_);
        view_.showVolume(playing_);
        if (!playing_.balanceHover) {
            view_.showBalance(playing_);
        }
    });
}

void PlaybackClock::Timer3() {
    config::guard(errors_, config::player("timer3"), [this] {
        if (state_.IsPlaying) {
            endTrackOnOverflow([this] { movePosition(); });
        }
    });
}

void PlaybackClock::movePosition() {
    std::int16_t percent = 0;
    if (state_.ActiveChannel != ChannelSlot::none) {
        const std::int32_t position = time_.GetPlayingPos(state_.active());
        percent = percentPlayed(position, time_.GetDuration(state_.active()));
    }
    playing_.percent = percent;
    view_.showPosition(playing_);
    if (isEndOfTrack(percent)) {
        advance_.endTrack();
    }
}

} // namespace tovik::player
