// SPDX-License-Identifier: GPL-3.0-or-later
// From float samples to 16 bits. A pure function, any thread.
#pragma once

#include <cstdint>
#include <span>

namespace tovik::sound {

/// Rounds `samples` times 32768 to the nearest number of 16 bits (halves to even) and holds it to
/// the range; n / 32768 gives n again, what is no number gives 0. Converts as many as both hold.
void toPcm16(std::span<const float> samples, std::span<std::int16_t> pcm) noexcept;

} // namespace tovik::sound
