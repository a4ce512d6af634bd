// SPDX-License-Identifier: GPL-3.0-or-later
// Time as the program sees it: a monotonic count for intervals, and the wall clock for what is
// written or shown. Interface thread.
#pragma once

#include <cstdint>

namespace tovik::host {

/// A moment of the wall clock in the local time zone.
struct LocalTime {
    int year = 0;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
    int hour = 0;  ///< 0 to 23
    int minute = 0;
    int second = 0;

    bool operator==(const LocalTime&) const = default;
};

/// Tells the time.
class Clock {
public:
    virtual ~Clock() = default;

    /// Milliseconds since an arbitrary start; never goes back.
    [[nodiscard]] virtual std::int64_t monotonicMs() const = 0;

    [[nodiscard]] virtual LocalTime localTime() const = 0;
};

} // namespace tovik::host
