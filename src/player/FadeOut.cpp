// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FadeOut.h"

#include "player/FadeTime.h"

#include <algorithm>
#include <utility>

namespace tovik::player {

FadeOut::FadeOut(const Core& core, std::function<void()> stop)
    : core_(core), stop_(std::move(stop)),
      timer_(core.timers.makeTimer([this] { FadeOut_Timer(); })) {}

void FadeOut::FadeOutTrack() {
    constexpr int kKeepFrequency = -1;
    constexpr int kKeepPan = -101;
    const std::int32_t milliseconds = fadeMilliseconds(fadeSeconds(core_.settings));
    if (milliseconds == 0) {
        stop_();
        return;
    }
    held_.reset();
    timer_->setInterval(milliseconds);
    timer_->setEnabled(true);
    core_.sound.BASS_ChannelSlideAttributes(core_.state.active(), kKeepFrequency, 0, kKeepPan,
                                            static_cast<std::uint32_t>(milliseconds));
}

void FadeOut::callOff() {
    held_.reset();
    timer_->setEnabled(false);
}

void FadeOut::hold() {
    if (timer_->enabled()) {
        held_ = timer_->remainingMs();
        timer_->setEnabled(false);
    }
}

void FadeOut::goOn() {
    if (held_) {
        constexpr int kSoon = 1; // an interval of 0 never ticks
        timer_->setInterval(std::max(*std::exchange(held_, std::nullopt), kSoon));
        timer_->setEnabled(true);
    }
}

} // namespace tovik::player
