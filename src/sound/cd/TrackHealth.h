// SPDX-License-Identifier: GPL-3.0-or-later
// How the reading of a track goes: told by who reads, asked by the interface thread. Any thread.
#pragma once

#include "sound/api/DiscToc.h"

#include <atomic>
#include <cstdint>

namespace tovik::sound {

class TrackHealth {
public:
    /// A trouble that ends the track stays.
    void note(DiscTrouble trouble) noexcept {
        DiscTrouble before = trouble_.load();
        while (trouble > before && !trouble_.compare_exchange_weak(before, trouble)) {
        }
    }

    /// So many sectors more are silence.
    void lose(std::int32_t sectors) noexcept {
        lost_ += sectors;
        note(DiscTrouble::unreadable);
    }

    void setCounts(std::int32_t lost, std::int32_t repaired) noexcept {
        lost_ = lost;
        repaired_ = repaired;
        if (lost > 0) {
            note(DiscTrouble::unreadable);
        }
    }

    [[nodiscard]] DiscReport report() const noexcept {
        return {.trouble = trouble_, .lostSectors = lost_, .repaired = repaired_};
    }

private:
    std::atomic<DiscTrouble> trouble_ = DiscTrouble::none;
    std::atomic<std::int32_t> lost_ = 0;
    std::atomic<std::int32_t> repaired_ = 0;
};

} // namespace tovik::sound
