// SPDX-License-Identifier: GPL-3.0-or-later
// One unbroken run of a channel's samples on their way to the mixer. The decoding side writes, the
// mixer reads, the interface thread looks at how far it is heard. A seek makes a new feed.
#pragma once

#include "sound/mix/FrameRing.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::sound {

class Feed {
public:
    /// `anchorFrame` is the place in the channel, in its own frames, of the first sample;
    /// `capacity` counts frames of the mix and is a power of two.
    Feed(std::int64_t anchorFrame, std::size_t capacity) : ring_(capacity), anchor_(anchorFrame) {}

    [[nodiscard]] std::int64_t anchorFrame() const noexcept { return anchor_; }

    // Decoding side -------------------------------------------------------------------------

    [[nodiscard]] std::size_t writableFrames() const noexcept { return ring_.writableFrames(); }

    std::size_t write(std::span<const float> interleaved) noexcept {
        return ring_.write(interleaved);
    }

    /// Nothing follows what was written.
    void complete() noexcept { complete_.store(true, std::memory_order_release); }

    [[nodiscard]] bool isComplete() const noexcept {
        return complete_.load(std::memory_order_acquire);
    }

    [[nodiscard]] std::size_t readableFrames() const noexcept { return ring_.readableFrames(); }

    [[nodiscard]] std::size_t capacity() const noexcept { return ring_.capacity(); }

    // Mixer ---------------------------------------------------------------------------------

    /// Takes up to the span's frames. `clock` is the count of frames that the mixer has handed out
    /// before this block.
    std::size_t read(std::span<float> interleaved, std::int64_t clock) noexcept {
        const std::size_t frames = ring_.read(interleaved);
        if (frames > 0) {
            const std::int64_t before = consumed_.load(std::memory_order_relaxed);
            lead_.store(clock - before, std::memory_order_relaxed);
            consumed_.store(before + static_cast<std::int64_t>(frames), std::memory_order_release);
        }
        return frames;
    }

    /// True once every sample was taken.
    [[nodiscard]] bool drained() const noexcept {
        return isComplete() && ring_.readableFrames() == 0;
    }

    [[nodiscard]] bool untouched() const noexcept {
        return consumed_.load(std::memory_order_acquire) == 0;
    }

    // Interface thread ----------------------------------------------------------------------

    /// Frames of the mix taken from this feed that are heard when the listener has heard
    /// `heardClock` frames of all that the mixer handed out.
    [[nodiscard]] std::int64_t heardFrames(std::int64_t heardClock) const noexcept {
        const std::int64_t consumed = consumed_.load(std::memory_order_acquire);
        const std::int64_t lead = lead_.load(std::memory_order_relaxed);
        return std::clamp<std::int64_t>(heardClock - lead, 0, consumed);
    }

    [[nodiscard]] std::int64_t consumedFrames() const noexcept {
        return consumed_.load(std::memory_order_acquire);
    }

private:
    FrameRing ring_;
    std::int64_t anchor_;
    std::atomic<bool> complete_ = false;
    std::atomic<std::int64_t> consumed_ = 0;
    /// The mixer's clock at which this feed's first frame would have been handed out, had it flowed
    /// without a break to where it is now.
    std::atomic<std::int64_t> lead_ = 0;
};

} // namespace tovik::sound
