// SPDX-License-Identifier: GPL-3.0-or-later
// A bounded queue between two threads without locks: one thread pushes, one other pops.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <type_traits>

namespace tovik::sound {

/// Distance that keeps data of two threads out of each other's cache lines.
inline constexpr std::size_t kCacheLine = 64;

/// Holds up to `Capacity` values, a power of two. Both sides may change their thread only when
/// something else orders the change (a lock, a join).
template <typename T, std::size_t Capacity>
class SpscQueue {
    static_assert(std::is_trivially_copyable_v<T>);
    static_assert(std::atomic<std::size_t>::is_always_lock_free);
    static_assert(Capacity > 0 && (Capacity & (Capacity - 1)) == 0);

public:
    /// Pushing thread. False, and nothing happens, when the queue is full.
    [[nodiscard]] bool push(const T& value) noexcept {
        const std::size_t tail = tail_.load(std::memory_order_relaxed);
        if (tail - head_.load(std::memory_order_acquire) == Capacity) {
            return false;
        }
        slots_[tail & (Capacity - 1)] = value;
        tail_.store(tail + 1, std::memory_order_release);
        return true;
    }

    /// Popping thread. False, and `value` stays as it was, when the queue is empty.
    [[nodiscard]] bool pop(T& value) noexcept {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        if (head == tail_.load(std::memory_order_acquire)) {
            return false;
        }
        value = slots_[head & (Capacity - 1)];
        head_.store(head + 1, std::memory_order_release);
        return true;
    }

    /// Any thread; may be out of date when it returns.
    [[nodiscard]] std::size_t sizeApprox() const noexcept {
        // The head first: the tail read after it cannot lie before it.
        const std::size_t head = head_.load(std::memory_order_acquire);
        const std::size_t used = tail_.load(std::memory_order_acquire) - head;
        return used < Capacity ? used : Capacity;
    }

private:
    // Counts of all pops and pushes; the slot is the count modulo the capacity.
    alignas(kCacheLine) std::atomic<std::size_t> head_{0};
    alignas(kCacheLine) std::atomic<std::size_t> tail_{0};
    alignas(kCacheLine) std::array<T, Capacity> slots_{};
};

} // namespace tovik::sound
