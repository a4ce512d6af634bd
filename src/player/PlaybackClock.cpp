// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlaybackClock.h"

#include "base/Numbers.h"
#include "player/ClockText.h"

#include <algorithm>
#include <limits>

namespace tovik::player {

namespace {

constexpr std::int16_t kRemaining = 1;
constexpr std::int64_t kMostSeconds = std::numeric_limits<std::int32_t>::max();

} // namespace

std::int16_t percentPlayed(std::int32_t position, std::int32_t duration) {
    return base::toInt16(base::divide(position, duration) * 100.0);
}

PlaybackClock::PlaybackClock(const Core& core)
    : core_(core), Timer1_(core.timers.makeTimer([this] { Timer1(); })),
      Timer2_(core.timers.makeTimer([this] { Timer2(); })),
      Timer3_(core.timers.makeTimer([this] { Timer3(); })) {
    Timer1_->setInterval(kTimer1Ms);
    Timer2_->setInterval(kTimer2Ms);
    Timer3_->setInterval(kTimer3Ms);
    core_.screen.add(*this);
}

PlaybackClock::~PlaybackClock() {
    core_.screen.remove(*this);
}

void PlaybackClock::begin() {
    movesDigits_ = true;
    showsWords_ = true;
    stir();
}

void PlaybackClock::moveDigits(bool moving) {
    movesDigits_ = moving;
    Timer1_->setEnabled(moving);
}

void PlaybackClock::beginTrack() {
    watchTrack(true);
    if (core_.state.comfort.endsExactly && movesDigits_) {
        core_.screen.playing.percent = 0;
        core_.screen.showPosition();
        showPlayed(0);
    }
}

bool PlaybackClock::rests() const {
    return !Timer1_->enabled() && !Timer2_->enabled() && !Timer3_->enabled();
}

/// A timer that ticks keeps its rhythm.
void PlaybackClock::stir() {
    if (movesDigits_ && !Timer1_->enabled()) {
        Timer1_->setEnabled(true);
    }
    if (showsWords_ && !Timer2_->enabled()) {
        Timer2_->setEnabled(true);
    }
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
        if (core_.state.comfort.stopsAtListEnd) {
            end_->endTrack();
        } else {
            end_->Next_track();
        }
    }
}

void PlaybackClock::Timer1() {
    config::guard(core_.errors, config::player("timer1"), [this] {
        if (core_.state.IsPlaying && core_.state.ActiveChannel != ChannelSlot::none) {
            endTrackOnOverflow([this] { showDigits(); });
        }
    });
    if (!core_.state.IsPlaying) {
        Timer1_->setEnabled(false);
    }
}

void PlaybackClock::showDigits() {
    const PlayerState& state = core_.state;
    if (state.RadioMode) {
        showHeard();
        return;
    }
    showPlayed(time_.GetPlayingPos(state.active()));
}

void PlaybackClock::showPlayed(std::int32_t seconds) {
    const PlayerState& state = core_.state;
    const std::int32_t shown =
        state.TimeDisplayMode == kRemaining ? time_.GetDuration(state.active()) - seconds : seconds;
    core_.screen.playing.time = clockText(state.comfort, shown);
    core_.screen.playing.countsDown = state.TimeDisplayMode != 0;
    core_.screen.showTime();
}

/// A station has no end that could be counted down to.
void PlaybackClock::showHeard() {
    const PlayerState& state = core_.state;
    const std::int64_t heard =
        std::int64_t{state.HeardBefore} + time_.GetHeardSeconds(state.active());
    core_.screen.playing.time =
        clockText(state.comfort, static_cast<std::int32_t>(std::min(heard, kMostSeconds)));
    core_.screen.playing.countsDown = false;
    core_.screen.showTime();
}

void PlaybackClock::Timer2() {
    config::guard(core_.errors, config::player("timer2"), [this] {
        Screen& screen = core_.screen;
        screen.playing.mode = core_.state.TrackInfoMode;
        screen.playing.infoText = core_.state.TrackInfoText;
        screen.showFormat();
        screen.showVolume();
        if (!screen.playing.balanceHover) {
            screen.showBalance();
        }
    });
    if (!core_.state.IsPlaying) {
        Timer2_->setEnabled(false);
    }
}

void PlaybackClock::Timer3() {
    config::guard(core_.errors, config::player("timer3"), [this] {
        if (core_.state.IsPlaying && !core_.state.RadioMode) {
            endTrackOnOverflow([this] { movePosition(); });
        }
    });
}

std::int16_t PlaybackClock::markPosition() {
    const PlayerState& state = core_.state;
    std::int16_t percent = 0;
    if (state.ActiveChannel != ChannelSlot::none) {
        const std::int32_t position = time_.GetPlayingPos(state.active());
        percent = percentPlayed(position, time_.GetDuration(state.active()));
    }
    core_.screen.playing.percent = percent;
    core_.screen.showPosition();
    return percent;
}

void PlaybackClock::movePosition() {
    const std::int16_t percent = markPosition();
    if (core_.state.comfort.endsExactly) {
        lookForExactEnd();
    } else if (isEndOfTrack(percent)) {
        end_->endTrack();
    }
}

/// The next look is at the end, where that is near: what was prepared is heard by then.
void PlaybackClock::lookForExactEnd() {
    constexpr std::int64_t kBehind = 10; // a timer may come early
    const sound::Handle channel = core_.state.active();
    if (core_.sound.BASS_ChannelIsActive(channel) == sound::Activity::stopped) {
        Timer3_->setInterval(kTimer3Ms);
        end_->endTrack();
        followTrack(channel);
        return;
    }
    const std::int64_t left = time_.GetMillisecondsLeft(channel);
    const std::int64_t until = left - end_->nearEnd(left) + kBehind;
    followTrack(channel);
    Timer3_->setInterval(static_cast<int>(std::clamp<std::int64_t>(until, kBehind, kTimer3Ms)));
}

/// Another track sounds than before: mark and digits are at its beginning now, not a tick later.
void PlaybackClock::followTrack(sound::Handle before) {
    const PlayerState& state = core_.state;
    if (!state.IsPlaying || state.RadioMode || state.active() == before ||
        core_.sound.BASS_ChannelIsActive(state.active()) == sound::Activity::stopped) {
        return;
    }
    static_cast<void>(markPosition());
    if (movesDigits_) {
        showDigits();
    }
}

} // namespace tovik::player
