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

std::int32_t fadeMilliseconds(std::int32_t seconds) {
    return std::max(base::toInt32(seconds * 1000.0), 0);
}

} // namespace tovik::player
