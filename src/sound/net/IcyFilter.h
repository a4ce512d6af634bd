// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the blocks of metadata out of a stream. After each `interval` bytes of sound the server
// sends a byte that tells the length of a block in units of 16 bytes, and the block. Pure; one
// thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tovik::sound {

/// Gets what the filter separates, in the order of the stream.
class IcySink {
public:
    virtual ~IcySink() = default;

    virtual void sound(std::span<const std::byte> bytes) = 0;

    /// The text of a block, without the NULs behind it. Blocks without a text are not told.
    virtual void metadata(std::string_view text) = 0;
};

class IcyFilter {
public:
    /// With an interval of 0 everything is sound.
    explicit IcyFilter(std::uint64_t interval) noexcept : interval_(interval), left_(interval) {}

    void feed(std::span<const std::byte> bytes, IcySink& sink);

private:
    [[nodiscard]] std::size_t feedText(std::span<const std::byte> bytes, IcySink& sink);

    std::uint64_t interval_;
    std::uint64_t left_;       ///< bytes of sound before the next block
    std::size_t textLeft_ = 0; ///< bytes of the block that are still to come
    std::string text_;
};

} // namespace tovik::sound
