// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/FadeTime.h"

#include "base/Numbers.h"
#include "player/LiveSetting.h"

#include <algorithm>

namespace tovik::player {

std::int32_t fadeSeconds(config::Settings& settings) {
    return readLive(settings, "CFDT",
                    [](std::string_view text) { return base::toInt32(base::textToNumber(text)); });
}

double shorterFade(std::int32_t seconds) noexcept {
    constexpr double kShare = 0.5;
    constexpr double kLongest = 2;
    return std::min(seconds * kShare, kLongest);
}

std::int32_t fadeFor(AskedBy who, std::int32_t seconds, config::Settings& settings,
                     const base::Comfort& comfort) {
    constexpr double kMsInSecond = 1000;
    if (who == AskedBy::player || !comfort.shortensManualNext) {
        return fadeMilliseconds(seconds);
    }
    const double wanted = readLiveOr(
        settings, "CFDN", [](std::string_view text) { return base::textToNumber(text); },
        shorterFade(seconds));
    return std::max(base::toInt32(wanted * kMsInSecond), 0);
}

std::int32_t fadeMilliseconds(std::int32_t seconds) {
    return std::max(base::toInt32(seconds * 1000.0), 0);
}

} // namespace tovik::player
