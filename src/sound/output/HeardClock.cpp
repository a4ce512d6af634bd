// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/HeardClock.h"

#include "sound/output/OutputDevice.h"

#include <algorithm>

namespace tovik::sound {

namespace {

/// A server that works is heard of more often; without news time stops.
constexpr std::chrono::seconds kMostToCount(4);

} // namespace

void HeardClock::set(const Reading& reading) noexcept {
    write(reading.runs ? State::runs : State::stands, reading);
}

void HeardClock::clear() noexcept {
    write(State::unknown, {});
}

void HeardClock::write(State state, const Reading& reading) noexcept {
    const std::uint32_t version = version_.load(std::memory_order_relaxed);
    version_.store(version + 1, std::memory_order_relaxed);
    // Each of these orders the odd version before itself: who sees one of them sees that, too.
    state_.store(state, std::memory_order_release);
    clock_.store(reading.clock, std::memory_order_release);
    when_.store(reading.when.time_since_epoch().count(), std::memory_order_release);
    limit_.store(reading.limit, std::memory_order_release);
    version_.store(version + 2, std::memory_order_release);
}

std::optional<std::int64_t> HeardClock::at(Time now) const noexcept {
    State state{};
    std::int64_t clock = 0;
    std::int64_t limit = 0;
    Time when;
    std::uint32_t before = 0;
    do {
        before = version_.load(std::memory_order_acquire);
        state = state_.load(std::memory_order_acquire);
        clock = clock_.load(std::memory_order_acquire);
        when = Time(Time::duration(when_.load(std::memory_order_acquire)));
        limit = limit_.load(std::memory_order_acquire);
    } while (before % 2 != 0 || version_.load(std::memory_order_relaxed) != before);
    if (state == State::unknown) {
        return std::nullopt;
    }
    if (state == State::runs) {
        const auto gone =
            std::clamp<Time::duration>(now - when, Time::duration::zero(), kMostToCount);
        clock += std::chrono::duration_cast<std::chrono::microseconds>(gone).count() * kMixRate /
                 1'000'000;
    }
    return std::min(clock, limit);
}

} // namespace tovik::sound
