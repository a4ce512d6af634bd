// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the mix also to a ring, each frame once and in order although the mixer may go back. Used
// on the thread that mixes.
#pragma once

#include "sound/mix/FrameRing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::sound {

class Capture {
public:
    /// From the mixer's clock `clock` on the mix goes to `ring`; to none if it is null.
    void begin(FrameRing* ring, std::int64_t clock) noexcept {
        ring_ = ring;
        start_ = ring != nullptr ? clock - written() : 0;
    }

    /// Lays the block that begins at `clock` into the ring, perhaps over one that was taken back.
    /// What does not fit is left out.
    void stage(std::int64_t clock, std::span<const float> block) noexcept {
        if (ring_ == nullptr || clock - start_ < written()) {
            return;
        }
        const std::size_t staged = ring_->stage(static_cast<std::size_t>(clock - start_), block);
        start_ += static_cast<std::int64_t>(block.size() / 2 - staged);
    }

    /// The clock went on by `frames` that were not mixed.
    void leaveOut(std::size_t frames) noexcept { start_ += static_cast<std::int64_t>(frames); }

    /// Hands out what lies before `clock`: it stays as it is.
    void settle(std::int64_t clock) noexcept {
        if (ring_ != nullptr) {
            ring_->publish(static_cast<std::size_t>(std::max(written(), clock - start_)));
        }
    }

private:
    [[nodiscard]] std::int64_t written() const noexcept {
        return static_cast<std::int64_t>(ring_->writtenFrames());
    }

    FrameRing* ring_ = nullptr;
    std::int64_t start_ = 0; ///< the clock at the ring's first frame
};

} // namespace tovik::sound
