// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TimeText.h"

#include "base/Numbers.h"

#include <algorithm>

namespace tovik::base {

namespace {

constexpr std::int32_t kSecondsPerMinute = 60;
constexpr std::int32_t kSecondsPerHour = 3600;
constexpr std::size_t kMinutesAndSeconds = 5; ///< characters

std::string twoDigits(std::int32_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::int32_t numberAt(std::string_view text, std::size_t position) {
    return toInt32(textToNumber(text.substr(std::min(position, text.size()), 2)));
}

} // namespace

std::string GetTime(std::int32_t seconds) {
    const std::int32_t all = std::max(seconds, 0);
    return twoDigits(all / kSecondsPerHour) + ":" +
           twoDigits(all / kSecondsPerMinute % kSecondsPerMinute) + ":" +
           twoDigits(all % kSecondsPerMinute);
}

std::string lastFive(std::int32_t seconds) {
    const std::string text = GetTime(seconds);
    return text.substr(text.size() - kMinutesAndSeconds);
}

std::string shortTime(std::int32_t seconds) {
    return seconds < kSecondsPerHour
               ? lastFive(seconds)
               : std::to_string(seconds / kSecondsPerHour) + ":" + lastFive(seconds);
}

std::int32_t GetSeconds(std::string_view time) {
    return numberAt(time, 0) * kSecondsPerHour + numberAt(time, 3) * kSecondsPerMinute +
           numberAt(time, 6);
}

} // namespace tovik::base
