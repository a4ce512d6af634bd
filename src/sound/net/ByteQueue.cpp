// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/ByteQueue.h"

#include <algorithm>

namespace tovik::sound {
namespace {

constexpr std::size_t kFirstBytes = std::size_t{64} * 1024;

} // namespace

void ByteQueue::grow(std::size_t bytes) {
    if (bytes <= ring_.size()) {
        return;
    }
    std::size_t capacity = std::max(ring_.size(), kFirstBytes);
    while (capacity < bytes) {
        capacity *= 2;
    }
    std::vector<std::byte> larger(std::min(capacity, most_));
    const std::size_t held = pop(larger);
    ring_ = std::move(larger);
    first_ = 0;
    size_ = held;
}

std::size_t ByteQueue::push(std::span<const std::byte> bytes) {
    bytes = bytes.first(std::min(bytes.size(), room()));
    grow(size_ + bytes.size());
    const std::size_t count = bytes.size();
    while (!bytes.empty()) {
        const std::size_t at = (first_ + size_) % ring_.size();
        const std::size_t part = std::min(bytes.size(), ring_.size() - at);
        std::ranges::copy(bytes.first(part), ring_.begin() + static_cast<std::ptrdiff_t>(at));
        size_ += part;
        bytes = bytes.subspan(part);
    }
    return count;
}

std::size_t ByteQueue::pop(std::span<std::byte> into) {
    std::size_t count = 0;
    while (count < into.size() && size_ > 0) {
        const std::size_t part = std::min({into.size() - count, size_, ring_.size() - first_});
        std::ranges::copy(std::span(ring_).subspan(first_, part),
                          into.begin() + static_cast<std::ptrdiff_t>(count));
        first_ = (first_ + part) % ring_.size();
        size_ -= part;
        count += part;
    }
    return count;
}

} // namespace tovik::sound
