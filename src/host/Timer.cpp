// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Timer.h"

#include <algorithm>
#include <utility>

namespace tovik::host {

Timer::Timer(const Clock& clock, const Dispatcher& dispatcher, Tick tick)
    : clock_(clock), dispatcher_(dispatcher), tick_(std::move(tick)) {}

void Timer::setInterval(int milliseconds) {
    intervalMs_ = std::max(milliseconds, 0);
    restart();
}

void Timer::setEnabled(bool enabled) {
    enabled_ = enabled;
    restart();
}

std::optional<std::int64_t> Timer::dueMs() const {
    if (!enabled_ || intervalMs_ == 0 || ticking_) {
        return std::nullopt;
    }
    return nextMs_;
}

std::optional<int> Timer::remainingMs() const {
    const auto due = dueMs();
    if (!due) {
        return std::nullopt;
    }
    return static_cast<int>(std::max<std::int64_t>(*due - clock_.monotonicMs(), 0));
}

void Timer::fire() {
    if (!dueMs()) {
        return;
    }
    // The rhythm goes on from the time that was due; missed ticks are left out.
    const std::int64_t missed = std::max<std::int64_t>(clock_.monotonicMs() - nextMs_, 0);
    nextMs_ += (missed / intervalMs_ + 1) * intervalMs_;
    ticking_ = true;
    dispatcher_.run(tick_);
    ticking_ = false;
    dueChanged();
}

void Timer::restart() {
    nextMs_ = clock_.monotonicMs() + intervalMs_;
    dueChanged();
}

} // namespace tovik::host
