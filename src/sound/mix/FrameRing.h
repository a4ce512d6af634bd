// SPDX-License-Identifier: GPL-3.0-or-later
// A ring of stereo float frames between two threads without locks: one writes, one other reads.
#pragma once

#include "sound/mix/SpscQueue.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstddef>
#include <span>
#include <vector>

namespace tovik::sound {

/// Both sides may change their thread only when something else orders the change (a lock, a join).
class FrameRing {
public:
    /// `capacityFrames` is raised to the next power of two.
    explicit FrameRing(std::size_t capacityFrames)
        : samples_(std::bit_ceil(std::max<std::size_t>(capacityFrames, 1)) * 2) {}

    [[nodiscard]] std::size_t capacity() const noexcept { return samples_.size() / 2; }

    /// Writing thread: frames that `write` would take now. May grow at once, never shrinks.
    [[nodiscard]] std::size_t writableFrames() const noexcept {
        return capacity() -
               (tail_.load(std::memory_order_relaxed) - head_.load(std::memory_order_acquire));
    }

    /// Reading thread: frames that `read` would give now. May grow at once, never shrinks.
    [[nodiscard]] std::size_t readableFrames() const noexcept {
        return tail_.load(std::memory_order_acquire) - head_.load(std::memory_order_relaxed);
    }

    /// Writing thread. Takes whole frames (left, right, ...) as far as there is room; returns the
    /// frames taken.
    std::size_t write(std::span<const float> interleaved) noexcept {
        const std::size_t tail = tail_.load(std::memory_order_relaxed);
        const std::size_t frames = std::min(interleaved.size() / 2, writableFrames());
        const std::size_t place = tail & (capacity() - 1);
        const std::size_t first = std::min(frames, capacity() - place);
        std::copy_n(interleaved.data(), first * 2, samples_.data() + place * 2);
        std::copy_n(interleaved.data() + first * 2, (frames - first) * 2, samples_.data());
        tail_.store(tail + frames, std::memory_order_release);
        return frames;
    }

    /// Reading thread. Fills whole frames as far as there are some; returns the frames given.
    std::size_t read(std::span<float> interleaved) noexcept {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        const std::size_t frames = std::min(interleaved.size() / 2, readableFrames());
        const std::size_t place = head & (capacity() - 1);
        const std::size_t first = std::min(frames, capacity() - place);
        std::copy_n(samples_.data() + place * 2, first * 2, interleaved.data());
        std::copy_n(samples_.data(), (frames - first) * 2, interleaved.data() + first * 2);
        head_.store(head + frames, std::memory_order_release);
        return frames;
    }

    /// Forgets what it holds. Only while neither side is at work.
    void clear() noexcept {
        head_.store(0, std::memory_order_relaxed);
        tail_.store(0, std::memory_order_relaxed);
    }

private:
    // Counts of all frames read and written; the place is the count modulo the capacity.
    alignas(kCacheLine) std::atomic<std::size_t> head_{0};
    alignas(kCacheLine) std::atomic<std::size_t> tail_{0};
    std::vector<float> samples_;
};

} // namespace tovik::sound
