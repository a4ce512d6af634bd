// SPDX-License-Identifier: GPL-3.0-or-later
// When there is enough to be heard. Pure; any thread.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace tovik::sound {

struct BufferRule {
    /// This much ahead is enough in any case.
    std::chrono::milliseconds full{3000};
    /// What a server sends at once, as far as it goes, is enough with as much as this.
    std::chrono::milliseconds least{500};
    /// Nothing came for this long: the burst is over.
    std::chrono::milliseconds pause{60};
};

/// What lies ready and what is known of the stream.
struct Buffered {
    std::size_t bytes = 0;
    std::size_t bytesPerSecond = 1;
    std::chrono::milliseconds quiet{0}; ///< since bytes came last
    bool complete = false;              ///< there are no more, or there is no room for more
};

[[nodiscard]] constexpr std::chrono::milliseconds timeIn(const Buffered& there) noexcept {
    return std::chrono::milliseconds(there.bytes * 1000 /
                                     std::max<std::size_t>(there.bytesPerSecond, 1));
}

[[nodiscard]] constexpr bool isEnough(const BufferRule& rule, const Buffered& there) noexcept {
    const auto time = timeIn(there);
    return there.complete || time >= rule.full || (time >= rule.least && there.quiet >= rule.pause);
}

/// How much of it is there, 0 to 99.
[[nodiscard]] constexpr int percentThere(const BufferRule& rule, const Buffered& there) noexcept {
    const auto share = timeIn(there) * 100 / std::max(rule.full, std::chrono::milliseconds(1));
    return static_cast<int>(std::min<std::chrono::milliseconds::rep>(share, 99));
}

} // namespace tovik::sound
