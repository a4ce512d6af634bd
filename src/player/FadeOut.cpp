// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FadeOut.h"

#include "player/FadeTime.h"

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
    timer_->setInterval(milliseconds);
    timer_->setEnabled(true);
    core_.sound.BASS_ChannelSlideAttributes(core_.state.active(), kKeepFrequency, 0, kKeepPan,
                                            static_cast<std::uint32_t>(milliseconds));
}

} // namespace tovik::player
