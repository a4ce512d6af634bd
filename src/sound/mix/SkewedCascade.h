// SPDX-License-Identifier: GPL-3.0-or-later
// Peaking filters in a row over stereo, two of them a vector. Used on the thread that mixes.
//
// A filter by itself waits most of the time for its own last result. So all filters work at the
// same time, each on the sample before that of its predecessor: they take what it gave one step
// ago. At the borders of a block those that have no sample (yet, any more) hold still; the result
// is that of one filter after the other, without latency.
//
// One filter, with k, f, c for `gain`, `frequency`, `feedback` of its pair and two states:
//   p = k x,  band = drive + p,  y = x + band,
//   drive' = c band - f low + p,  low' = low + f band,
// which has the transfer function 1 + k (1 - z^-2) / (1 + a1 z^-1 + a2 z^-2), with c = -1 - a1 and
// f^2 = 1 + a1 + a2. Unlike the direct forms it adds little rounding noise at low frequencies.
#pragma once

#include <cstddef>
#include <span>

namespace tovik::sound {

/// Two bands: even left, even right, odd left, odd right.
using Lanes = float __attribute__((vector_size(16)));

struct CascadePair {
    Lanes drive{};
    Lanes low{};
    Lanes gain{};
    Lanes frequency{};
    Lanes feedback{};
    // What the three above grow by a frame while they ramp.
    Lanes gainStep{};
    Lanes frequencyStep{};
    Lanes feedbackStep{};
};

/// Filters left, right, ... in place through up to five pairs, the first one first. With `ramping`
/// the coefficients go on by their steps every frame, else the steps are not looked at.
void runCascade(std::span<CascadePair* const> pairs, std::span<float> interleaved,
                bool ramping) noexcept;

} // namespace tovik::sound
