// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes on their way from the network to the decoder: a ring that grows up to a limit, so that an
// ordinary stream takes little memory. Pure; one thread at a time.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tovik::sound {

class ByteQueue {
public:
    explicit ByteQueue(std::size_t mostBytes) noexcept : most_(mostBytes) {}

    [[nodiscard]] std::size_t size() const noexcept { return size_; }

    [[nodiscard]] std::size_t room() const noexcept { return most_ - size_; }

    /// Takes what there is room for; how many that were.
    std::size_t push(std::span<const std::byte> bytes);

    /// Gives up to `into.size()` bytes; how many that were.
    std::size_t pop(std::span<std::byte> into);

private:
    void grow(std::size_t bytes);

    std::size_t most_;
    std::vector<std::byte> ring_;
    std::size_t first_ = 0;
    std::size_t size_ = 0;
};

} // namespace tovik::sound
