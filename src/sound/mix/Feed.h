// SPDX-License-Identifier: GPL-3.0-or-later
// One unbroken run of a channel's samples on their way to the mixer. The decoding side writes, the
// mixer reads, each on a thread of its own; what may have to be read once more stays until it is
// released. A seek makes a new feed.
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
    /// `capacity` counts frames of the mix and is a power of two; `number` tells the feeds of one
    /// channel apart.
    Feed(std::int64_t anchorFrame, std::size_t capacity, std::uint32_t number = 0)
        : ring_(capacity), anchor_(anchorFrame), number_(number) {}

    /// Any thread.
    [[nodiscard]] std::int64_t anchorFrame() const noexcept {
        return anchor_.load(std::memory_order_acquire);
    }

    [[nodiscard]] std::uint32_t number() const noexcept { return number_; }

    /// Frames of the mix written so far. Any thread.
    [[nodiscard]] std::int64_t writtenFrames() const noexcept {
        return static_cast<std::int64_t>(ring_.writtenFrames());
    }

    /// Nothing follows what was written. Any thread.
    [[nodiscard]] bool isComplete() const noexcept {
        return complete_.load(std::memory_order_acquire);
    }

    // Decoding side -------------------------------------------------------------------------

    /// Before the first sample is written: it is of another place than was thought.
    void moveAnchor(std::int64_t frame) noexcept {
        anchor_.store(frame, std::memory_order_release);
    }

    [[nodiscard]] std::size_t writableFrames() const noexcept { return ring_.writableFrames(); }

    std::size_t write(std::span<const float> interleaved) noexcept {
        return ring_.write(interleaved);
    }

    void complete() noexcept { complete_.store(true, std::memory_order_release); }

    /// Frames that the mixer has not come to yet.
    [[nodiscard]] std::size_t readableFrames() const noexcept {
        return ring_.writtenFrames() - std::min(ring_.writtenFrames(), reached_.load());
    }

    // Mixer ---------------------------------------------------------------------------------

    /// Fills frames from `place` on, counted from the first one; returns how many there were.
    std::size_t read(std::int64_t place, std::span<float> interleaved) noexcept {
        const auto from = static_cast<std::size_t>(place);
        const std::size_t frames = ring_.copy(from, interleaved);
        reached_.store(from + frames);
        return frames;
    }

    /// The mixer stands at `place` again.
    void goBack(std::int64_t place) noexcept { reached_.store(static_cast<std::size_t>(place)); }

    /// Nothing before `place` will be read again.
    void release(std::int64_t place) noexcept { ring_.release(static_cast<std::size_t>(place)); }

private:
    FrameRing ring_;
    std::atomic<std::int64_t> anchor_;
    std::uint32_t number_;
    std::atomic<bool> complete_ = false;
    std::atomic<std::size_t> reached_ = 0; ///< where the mixer reads next
};

} // namespace tovik::sound
