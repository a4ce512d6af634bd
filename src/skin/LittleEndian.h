// SPDX-License-Identifier: GPL-3.0-or-later
// What the bytes of skin packages have in common. Any thread.
#pragma once

#include "base/LittleEndian.h"

#include <cstdint>
#include <span>

namespace tovik::skin {

using base::appendLittleEndian;
using base::bytesOf;
using base::littleEndian;

/// All bytes joined by exclusive or.
[[nodiscard]] inline std::uint8_t checkSumOf(std::span<const std::uint8_t> bytes) noexcept {
    std::uint8_t sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum = static_cast<std::uint8_t>(sum ^ byte);
    }
    return sum;
}

} // namespace tovik::skin
