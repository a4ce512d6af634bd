// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackSeek.h"

#include "base/Numbers.h"
#include "player/ClockText.h"

#include <algorithm>

namespace tovik::player {

namespace {

constexpr double kAll = 100;

} // namespace

bool TrackSeek::take() {
    if (sounds()) {
        taken_ = true;
        clock_.watchTrack(false);
    }
    core_.state.SilenceTicks = 0;
    return sounds();
}

bool TrackSeek::drag() {
    if (!sounds()) {
        return false;
    }
    taken_ = true;
    clock_.watchTrack(false);
    clock_.moveDigits(false);
    core_.state.SilenceTicks = 0;
    return true;
}

void TrackSeek::preview(double percent) {
    const std::int32_t duration = time_.GetDuration(core_.state.active());
    const std::int32_t place = base::toInt32(duration * percent / kAll);
    NowPlaying& playing = core_.screen.playing;
    playing.time =
        clockText(core_.state.comfort, core_.state.TimeDisplayMode == 0 ? place : duration - place);
    playing.countsDown = core_.state.TimeDisplayMode != 0;
    core_.screen.showTime();
}

void TrackSeek::seek(double percent) {
    const sound::Handle channel = core_.state.active();
    const double seconds = time_.GetDuration(channel) / kAll * percent;
    time_.SetPlayingPos(channel, base::toInt32(seconds), false);
    core_.news.reportSeek();
}

void TrackSeek::letGo() {
    taken_ = false;
    // A station may have begun meanwhile, whose end nobody waits for.
    clock_.watchTrack(!core_.state.RadioMode);
    clock_.moveDigits(true);
    core_.state.SilenceTicks = 0;
}

void TrackSeek::goTo(std::int32_t second) {
    if (sounds()) {
        time_.SetPlayingPos(core_.state.active(), std::clamp(second, 0, length()), false);
        core_.state.SilenceTicks = 0;
        core_.news.reportSeek();
    }
}

std::int32_t TrackSeek::second() const {
    return sounds() ? time_.GetPlayingPos(core_.state.active()) : 0;
}

std::int32_t TrackSeek::length() const {
    return core_.state.IsPlaying && !core_.state.RadioMode ? time_.GetDuration(core_.state.active())
                                                           : 0;
}

} // namespace tovik::player
