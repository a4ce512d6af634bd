// SPDX-License-Identifier: GPL-3.0-or-later
// How many files may be made. One thread at a time.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace tovik::radio {

/// 32 at once, then one a second: no song is so short that this keeps it from being saved, and a
/// server that sends a title with every byte does not fill the folder with files.
class OpenLimit {
public:
    [[nodiscard]] bool mayOpen() {
        const auto now = Clock::now();
        const auto past = std::chrono::duration_cast<std::chrono::seconds>(now - counted_).count();
        if (past > 0) {
            opens_ -= static_cast<int>(std::min<std::int64_t>(past, opens_));
            counted_ = now;
        }
        if (opens_ >= kMostOpens) {
            return false;
        }
        ++opens_;
        return true;
    }

private:
    using Clock = std::chrono::steady_clock;

    static constexpr int kMostOpens = 32;

    int opens_ = 0; ///< of late: one a second is forgotten
    Clock::time_point counted_ = Clock::now();
};

} // namespace tovik::radio
