// SPDX-License-Identifier: GPL-3.0-or-later
// Ten peaking bands in a row over stereo. Used on the thread that mixes.
#pragma once

#include "sound/mix/BandRamp.h"
#include "sound/mix/PeakingFilter.h"
#include "sound/mix/SkewedCascade.h"

#include <array>
#include <cstddef>
#include <span>

namespace tovik::sound {

class EqualizerBank {
public:
    static constexpr int kBands = 10;

    /// From now on band `index` goes to `band`, over about 5 ms or, without `ramp`, at once. A
    /// neutral band fades out and then costs nothing. An index outside 0 to 9 does nothing.
    void setBand(int index, const BandCoefficients& band, bool ramp = true) noexcept;

    /// Filters left, right, ... in place, without latency. While no band is at work the samples
    /// are not touched. Samples that are no numbers spoil nothing but themselves and their block.
    void process(std::span<float> interleaved) noexcept;

    /// True when no band is at work.
    [[nodiscard]] bool neutral() const noexcept;

    /// Forgets the sound so far and puts every band where it was going, at once.
    void reset() noexcept;

private:
    [[nodiscard]] bool ramping() const noexcept;
    [[nodiscard]] std::size_t aim(std::size_t frames) noexcept;
    void settle(std::size_t index) noexcept;

    std::array<BandRamp, kBands> bands_{};
    std::array<CascadePair, kBands / 2> pairs_{};
    std::array<CascadePair*, kBands / 2> active_{};
};

} // namespace tovik::sound
