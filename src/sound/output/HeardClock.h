// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard of a device that mixes ahead. The device's thread tells now and then, any thread
// may ask at any moment: in between, time is counted on.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>

namespace tovik::sound {

class HeardClock {
public:
    using Time = std::chrono::steady_clock::time_point;

    struct Reading {
        std::int64_t clock = 0; ///< heard at `when`
        Time when;
        bool runs = false;      ///< time goes on
        std::int64_t limit = 0; ///< no more than this was mixed
    };

    // Device thread -------------------------------------------------------------------------

    void set(const Reading& reading) noexcept;

    /// Nothing is known any more.
    void clear() noexcept;

    // Any thread ----------------------------------------------------------------------------

    /// The clock heard at `now`; nothing while nothing is known.
    [[nodiscard]] std::optional<std::int64_t> at(Time now) const noexcept;

private:
    enum class State : std::uint8_t { unknown, stands, runs };

    void write(State state, const Reading& reading) noexcept;

    // `version_` is odd while the others are written, and grows with each writing.
    std::atomic<std::uint32_t> version_ = 0;
    std::atomic<State> state_ = State::unknown;
    std::atomic<std::int64_t> clock_ = 0;
    std::atomic<Time::rep> when_ = 0;
    std::atomic<std::int64_t> limit_ = 0;

    static_assert(std::atomic<State>::is_always_lock_free);
    static_assert(std::atomic<std::int64_t>::is_always_lock_free);
};

} // namespace tovik::sound
