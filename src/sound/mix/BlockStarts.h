// SPDX-License-Identifier: GPL-3.0-or-later
// Where the blocks mixed ahead begin: the places to which the mixer can go back. Used on the thread
// that mixes.
#pragma once

#include "sound/mix/Remix.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace tovik::sound {

/// Blocks follow each other; each has a slot below kCheckpoints in which others keep what belongs
/// to it. Only the last kCheckpoints blocks are known.
class BlockStarts {
public:
    /// A block begins at `clock`, which grows from call to call; its slot.
    std::size_t begin(std::int64_t clock) noexcept {
        const std::size_t slot = next_++ % kCheckpoints;
        clocks_[slot] = clock;
        known_ = std::min(known_ + 1, kCheckpoints);
        return slot;
    }

    [[nodiscard]] bool empty() const noexcept { return known_ == 0; }

    [[nodiscard]] std::int64_t clockOf(std::size_t slot) const noexcept { return clocks_[slot]; }

    /// The first known block that begins at `clock` or later.
    [[nodiscard]] std::optional<std::size_t> atOrAfter(std::int64_t clock) const noexcept {
        std::optional<std::size_t> found;
        for (std::size_t back = 1; back <= known_; ++back) {
            const std::size_t slot = (next_ - back) % kCheckpoints;
            if (clocks_[slot] < clock) {
                break;
            }
            found = slot;
        }
        return found;
    }

    /// The last known block that begins at `clock` or before, else the oldest. Not while empty.
    [[nodiscard]] std::size_t atOrBefore(std::int64_t clock) const noexcept {
        std::size_t back = 1;
        while (back < known_ && clocks_[(next_ - back) % kCheckpoints] > clock) {
            ++back;
        }
        return (next_ - back) % kCheckpoints;
    }

    /// Forgets the known block in `slot` and all behind it.
    void dropFrom(std::size_t slot) noexcept {
        std::size_t last = 0;
        do {
            last = --next_ % kCheckpoints;
            --known_;
        } while (last != slot);
    }

    void clear() noexcept { known_ = 0; }

private:
    std::array<std::int64_t, kCheckpoints> clocks_{};
    std::size_t next_ = 0; ///< count of all blocks; the slot is the count modulo kCheckpoints
    std::size_t known_ = 0;
};

} // namespace tovik::sound
