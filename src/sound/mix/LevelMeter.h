// SPDX-License-Identifier: GPL-3.0-or-later
// How loud a block is. Pure functions, any thread.
#pragma once

#include <cstdint>
#include <span>

namespace tovik::sound {

/// The largest absolute sample of each side; 1 is full scale.
struct StereoPeak {
    float left = 0.0F;
    float right = 0.0F;
};

/// Looks at left, right, ...; samples that are no numbers do not count.
[[nodiscard]] StereoPeak measureLevel(std::span<const float> interleaved) noexcept;

/// Low word left, high word right, each 0 to 128 and rounded up, so that only silence is 0.
[[nodiscard]] std::uint32_t packLevel(StereoPeak peak) noexcept;

} // namespace tovik::sound
