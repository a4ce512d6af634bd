// SPDX-License-Identifier: GPL-3.0-or-later
// Integers with their low byte first, as skin packages, bitmaps and region files hold them. Any
// thread.
#pragma once

#include "base/RuntimeError.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace tovik::base {

/// The integer at that place. Raises 9 when the bytes end before.
template <std::integral Number>
[[nodiscard]] Number littleEndian(std::span<const std::uint8_t> bytes, std::size_t at) {
    if (at > bytes.size() || bytes.size() - at < sizeof(Number)) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    std::make_unsigned_t<Number> value = 0;
    for (std::size_t byte = 0; byte < sizeof(Number); ++byte) {
        value = static_cast<std::make_unsigned_t<Number>>(
            value | static_cast<std::make_unsigned_t<Number>>(bytes[at + byte]) << (8 * byte));
    }
    return static_cast<Number>(value);
}

/// Appends the integer's bytes.
template <std::integral Number>
void appendLittleEndian(std::string& bytes, Number number) {
    auto value = static_cast<std::make_unsigned_t<Number>>(number);
    for (std::size_t byte = 0; byte < sizeof(Number); ++byte) {
        bytes += static_cast<char>(value >> (8 * byte) & 0xFF);
    }
}

/// The bytes of a text as numbers from 0 to 255.
[[nodiscard]] inline std::span<const std::uint8_t> bytesOf(std::string_view text) noexcept {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): characters as bytes
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace tovik::base
