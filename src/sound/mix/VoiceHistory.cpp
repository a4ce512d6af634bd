// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/VoiceHistory.h"

#include <algorithm>

namespace tovik::sound {

void VoiceHistory::note(const HeardBlock& block) noexcept {
    const std::size_t count = count_.load(std::memory_order_relaxed);
    Slot& slot = slots_[count % kBlocks];
    const std::uint32_t version = slot.version.load(std::memory_order_relaxed);
    slot.version.store(version + 1, std::memory_order_relaxed);
    // Each of these orders the odd version before itself: who sees one of them sees that, too.
    slot.clock.store(block.clock, std::memory_order_release);
    slot.taken.store(block.taken, std::memory_order_release);
    slot.tapped.store(block.tapped, std::memory_order_release);
    slot.frames.store(block.frames, std::memory_order_release);
    slot.given.store(block.given, std::memory_order_release);
    slot.feed.store(block.feed, std::memory_order_release);
    slot.level.store(block.level, std::memory_order_release);
    slot.volume.store(block.volume, std::memory_order_release);
    slot.pan.store(block.pan, std::memory_order_release);
    slot.starved.store(block.starved, std::memory_order_release);
    slot.version.store(version + 2, std::memory_order_release);
    count_.store(count + 1, std::memory_order_release);
}

std::optional<HeardBlock> VoiceHistory::read(const Slot& slot) noexcept {
    const std::uint32_t before = slot.version.load(std::memory_order_acquire);
    const HeardBlock block{.clock = slot.clock.load(std::memory_order_acquire),
                           .taken = slot.taken.load(std::memory_order_acquire),
                           .tapped = slot.tapped.load(std::memory_order_acquire),
                           .frames = slot.frames.load(std::memory_order_acquire),
                           .given = slot.given.load(std::memory_order_acquire),
                           .feed = slot.feed.load(std::memory_order_acquire),
                           .level = slot.level.load(std::memory_order_acquire),
                           .volume = slot.volume.load(std::memory_order_acquire),
                           .pan = slot.pan.load(std::memory_order_acquire),
                           .starved = slot.starved.load(std::memory_order_acquire)};
    const bool whole = before % 2 == 0 && slot.version.load(std::memory_order_relaxed) == before;
    return whole ? std::optional(block) : std::nullopt;
}

std::optional<HeardBlock> VoiceHistory::at(std::int64_t clock) const noexcept {
    const std::size_t count = count_.load(std::memory_order_acquire);
    const std::size_t known = std::min(count, kBlocks);
    std::optional<HeardBlock> found;
    for (std::size_t back = 1; back <= known; ++back) {
        // A block that is being written lies ahead of whatever is heard.
        if (const auto block = read(slots_[(count - back) % kBlocks])) {
            if (found && block->clock > found->clock) {
                break; // written meanwhile, in place of an older one
            }
            found = block;
            if (block->clock <= clock) {
                break;
            }
        }
    }
    return found;
}

} // namespace tovik::sound
