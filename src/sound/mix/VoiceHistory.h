// SPDX-License-Identifier: GPL-3.0-or-later
// The last blocks of a voice. The mixer runs up to a second ahead of what is heard: it notes each
// block here and takes notes back with the blocks; the interface thread looks up the heard one.
#pragma once

#include "sound/mix/HeardBlock.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace tovik::sound {

class VoiceHistory {
public:
    /// Blocks kept: about three seconds when the mixer runs ahead.
    static constexpr std::size_t kBlocks = 256;

    // Mixer ---------------------------------------------------------------------------------

    /// Adds the next block.
    void note(const HeardBlock& block) noexcept;

    [[nodiscard]] std::size_t count() const noexcept {
        return count_.load(std::memory_order_relaxed);
    }

    /// Forgets all but the first `count` blocks.
    void goBack(std::size_t count) noexcept { count_.store(count, std::memory_order_release); }

    // Interface thread ----------------------------------------------------------------------

    /// The last block that began at or before `clock`, or the oldest one known; nothing while there
    /// is none.
    [[nodiscard]] std::optional<HeardBlock> at(std::int64_t clock) const noexcept;

private:
    /// A block whose pieces are written one by one; `version` is odd meanwhile and grows with each
    /// writing, so a reader knows whether what it has read belongs together.
    struct Slot {
        std::atomic<std::uint32_t> version = 0;
        std::atomic<std::int64_t> clock = 0;
        std::atomic<std::int64_t> taken = 0;
        std::atomic<std::int64_t> tapped = 0;
        std::atomic<std::int32_t> frames = 0;
        std::atomic<std::int32_t> given = 0;
        std::atomic<std::uint32_t> feed = 0;
        std::atomic<std::uint32_t> level = 0;
        std::atomic<float> volume = 1.0F;
        std::atomic<float> pan = 0.0F;
        std::atomic<bool> starved = false;
    };

    static_assert(std::atomic<std::int64_t>::is_always_lock_free);
    static_assert(std::atomic<float>::is_always_lock_free);
    static_assert(std::atomic<bool>::is_always_lock_free);

    [[nodiscard]] static std::optional<HeardBlock> read(const Slot& slot) noexcept;

    std::array<Slot, kBlocks> slots_{};
    std::atomic<std::size_t> count_ = 0; ///< blocks noted and not taken back
};

} // namespace tovik::sound
