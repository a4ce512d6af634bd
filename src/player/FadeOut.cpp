// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FadeOut.h"

#include "player/FadeTime.h"

namespace tovik::player {

void FadeOut::FadeOutTrack() {
    constexpr int kKeepFrequency = -1;
    constexpr int kKeepPan = -101;
    const std::int32_t milliseconds = fadeMilliseconds(fadeSeconds(settings_));
    if (milliseconds == 0) {
        transport_.button_stop();
        return;
    }
    timer_.setInterval(milliseconds);
    timer_.setEnabled(true);
    sound_.BASS_ChannelSlideAttributes(state_.active(), kKeepFrequency, 0, kKeepPan,
                                       static_cast<std::uint32_t>(milliseconds));
}

void FadeOut::FadeOut_Timer() {
    transport_.button_stop();
}

} // namespace tovik::player
