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
        const std::size_t frames = stage(tail, interleaved);
        publish(tail + frames);
        return frames;
    }

    /// Reading thread. Fills whole frames as far as there are some; returns the frames given.
    std::size_t read(std::span<float> interleaved) noexcept {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        const std::size_t frames = copy(head, interleaved);
        release(head + frames);
        return frames;
    }

    // Places are counts of all frames since the beginning -------------------------------------

    /// Any thread: the place behind the last frame written.
    [[nodiscard]] std::size_t writtenFrames() const noexcept {
        return tail_.load(std::memory_order_acquire);
    }

    /// Writing thread: puts frames at `place`, which lies at or behind the last one written, as far
    /// as there is room; the reading thread sees them once they are published.
    std::size_t stage(std::size_t place, std::span<const float> interleaved) noexcept {
        const std::size_t end = head_.load(std::memory_order_acquire) + capacity();
        const std::size_t frames = std::min(interleaved.size() / 2, end - std::min(place, end));
        const std::size_t at = place & (capacity() - 1);
        const std::size_t first = std::min(frames, capacity() - at);
        std::copy_n(interleaved.data(), first * 2, samples_.data() + at * 2);
        std::copy_n(interleaved.data() + first * 2, (frames - first) * 2, samples_.data());
        return frames;
    }

    /// Writing thread: everything before `place` is staged and may be read.
    void publish(std::size_t place) noexcept { tail_.store(place, std::memory_order_release); }

    /// Reading thread: fills whole frames from `place` on, which was not released yet, as far as
    /// there are some; returns the frames given. They stay.
    std::size_t copy(std::size_t place, std::span<float> interleaved) const noexcept {
        const std::size_t tail = tail_.load(std::memory_order_acquire);
        const std::size_t frames = std::min(interleaved.size() / 2, tail - std::min(place, tail));
        const std::size_t at = place & (capacity() - 1);
        const std::size_t first = std::min(frames, capacity() - at);
        std::copy_n(samples_.data() + at * 2, first * 2, interleaved.data());
        std::copy_n(samples_.data(), (frames - first) * 2, interleaved.data() + first * 2);
        return frames;
    }

    /// Reading thread: what lies before `place` is not read again and makes room.
    void release(std::size_t place) noexcept { head_.store(place, std::memory_order_release); }

    /// Forgets what it holds. Only while neither side is at work.
    void clear() noexcept {
        head_.store(0, std::memory_order_relaxed);
        tail_.store(0, std::memory_order_relaxed);
    }

private:
    static_assert(std::atomic<std::size_t>::is_always_lock_free);

    // Counts of all frames read and written; the place is the count modulo the capacity.
    alignas(kCacheLine) std::atomic<std::size_t> head_{0};
    alignas(kCacheLine) std::atomic<std::size_t> tail_{0};
    std::vector<float> samples_;
};

} // namespace tovik::sound
