// SPDX-License-Identifier: GPL-3.0-or-later
// Bridges the blocks that could not be mixed: the last frame is held while it fades away, and what
// comes next fades in over it, so that a hole is no click. Used by the device's thread alone.
#pragma once

#include "sound/mix/LinearRamp.h"

#include <array>
#include <span>

namespace tovik::sound {

class MissedTurn {
public:
    /// Fills a block for which there is no mix.
    void bridge(std::span<float> block) noexcept;

    /// Leads over to `block`, which is mixed; to be called for each such block. `sounds`: something
    /// in it goes on, so that a hole right behind it would be heard.
    void pass(std::span<float> block, bool sounds) noexcept;

private:
    [[nodiscard]] bool idle() const noexcept { return held_.settled() && mixed_.settled(); }

    void remember(std::span<const float> block) noexcept;

    std::array<float, 2> lastFrame_{}; ///< what the device got last
    std::array<float, 2> heldFrame_{}; ///< stands in for what is missing
    LinearRamp held_{0.0F};            ///< share of `heldFrame_`
    LinearRamp mixed_{1.0F};           ///< share of the mix
    bool sounds_ = false;
    bool missing_ = false; ///< the last block was missed
};

} // namespace tovik::sound
