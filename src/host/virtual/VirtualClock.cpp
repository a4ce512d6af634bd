// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/virtual/VirtualClock.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <utility>

namespace tovik::host {

/// Needs no waking: the clock asks when it is due.
class VirtualClock::VirtualTimer final : public Timer {
public:
    VirtualTimer(VirtualClock& clock, Tick tick)
        : Timer(clock, clock.dispatcher_, std::move(tick)), owner_(clock) {
        owner_.timers_.push_back(this);
    }

    ~VirtualTimer() override { std::erase(owner_.timers_, this); }

    VirtualTimer(const VirtualTimer&) = delete;
    VirtualTimer& operator=(const VirtualTimer&) = delete;

    using Timer::dueMs;
    using Timer::fire;

private:
    void dueChanged() override {}

    VirtualClock& owner_;
};

VirtualClock::VirtualClock(const Dispatcher& dispatcher, LocalTime start)
    : dispatcher_(dispatcher), start_(start) {}

VirtualClock::~VirtualClock() {
    assert(timers_.empty());
}

LocalTime VirtualClock::localTime() const {
    using namespace std::chrono;
    const sys_days firstDay =
        year_month_day(year(start_.year), month(static_cast<unsigned>(start_.month)),
                       day(static_cast<unsigned>(start_.day)));
    const auto now = firstDay + hours(start_.hour) + minutes(start_.minute) +
                     seconds(start_.second) + floor<seconds>(milliseconds(nowMs_));
    const auto today = floor<days>(now);
    const year_month_day date(today);
    const hh_mm_ss<seconds> time(now - today);
    return {.year = static_cast<int>(date.year()),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .hour = static_cast<int>(time.hours().count()),
            .minute = static_cast<int>(time.minutes().count()),
            .second = static_cast<int>(time.seconds().count())};
}

std::unique_ptr<Timer> VirtualClock::makeTimer(Timer::Tick tick) {
    return std::make_unique<VirtualTimer>(*this, std::move(tick));
}

VirtualClock::VirtualTimer* VirtualClock::nextTimer() const {
    VirtualTimer* next = nullptr;
    for (VirtualTimer* const timer : timers_) {
        if (timer->dueMs() && (next == nullptr || *timer->dueMs() < *next->dueMs())) {
            next = timer;
        }
    }
    return next;
}

std::optional<std::int64_t> VirtualClock::nextDue() const {
    const VirtualTimer* const timer = nextTimer();
    if (timer == nullptr) {
        return std::nullopt;
    }
    return std::max(*timer->dueMs(), nowMs_);
}

void VirtualClock::advanceTo(std::int64_t milliseconds) {
    for (;;) {
        VirtualTimer* const timer = nextTimer();
        if (timer == nullptr || *timer->dueMs() > milliseconds) {
            break;
        }
        nowMs_ = std::max(nowMs_, *timer->dueMs());
        timer->fire();
    }
    nowMs_ = std::max(nowMs_, milliseconds);
}

} // namespace tovik::host
