// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/SystemClock.h"

#include <chrono>
#include <ctime>

namespace tovik::host {

std::int64_t SystemClock::monotonicMs() const {
    using std::chrono::milliseconds;
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<milliseconds>(sinceStart).count();
}

LocalTime SystemClock::localTime() const {
    constexpr int kFirstYear = 1900;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return {.year = local.tm_year + kFirstYear,
            .month = local.tm_mon + 1,
            .day = local.tm_mday,
            .hour = local.tm_hour,
            .minute = local.tm_min,
            .second = local.tm_sec};
}

} // namespace tovik::host
