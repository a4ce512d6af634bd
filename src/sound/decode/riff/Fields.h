// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and names at fixed places of a few bytes. Any thread.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tovik::sound::riff {

/// A view, little-endian but where a name says "big"; the caller sees to it that what is asked for
/// lies within.
class Fields {
public:
    explicit Fields(std::span<const std::byte> bytes) noexcept : bytes_(bytes) {}

    [[nodiscard]] std::size_t size() const noexcept { return bytes_.size(); }

    [[nodiscard]] bool isName(std::size_t at, std::string_view name) const noexcept {
        return std::ranges::equal(bytes_.subspan(at, name.size()), std::as_bytes(std::span(name)));
    }

    [[nodiscard]] std::uint8_t byte(std::size_t at) const noexcept {
        return std::to_integer<std::uint8_t>(bytes_[at]);
    }

    [[nodiscard]] std::uint16_t word(std::size_t at) const noexcept {
        return static_cast<std::uint16_t>(number(at, 2));
    }

    [[nodiscard]] std::int16_t signedWord(std::size_t at) const noexcept {
        return static_cast<std::int16_t>(word(at));
    }

    [[nodiscard]] std::uint32_t longWord(std::size_t at) const noexcept { return number(at, 4); }

    [[nodiscard]] std::uint16_t bigWord(std::size_t at) const noexcept {
        return static_cast<std::uint16_t>(byte(at) << 8U | byte(at + 1));
    }

    [[nodiscard]] std::uint32_t bigLongWord(std::size_t at) const noexcept {
        return static_cast<std::uint32_t>(bigWord(at)) << 16U | bigWord(at + 2);
    }

private:
    [[nodiscard]] std::uint32_t number(std::size_t at, std::size_t size) const noexcept {
        std::uint32_t value = 0;
        for (std::size_t n = size; n-- > 0;) {
            value = value << 8U | std::to_integer<std::uint32_t>(bytes_[at + n]);
        }
        return value;
    }

    std::span<const std::byte> bytes_;
};

} // namespace tovik::sound::riff
