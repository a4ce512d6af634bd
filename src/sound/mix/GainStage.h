// SPDX-License-Identifier: GPL-3.0-or-later
// Volume, pan and fade of one voice. Used on the thread that mixes.
#pragma once

#include "sound/mix/LinearRamp.h"

#include <cstdint>
#include <span>

namespace tovik::sound {

/// Gain left is fade * volume * sin(blend * pi / 2) * min(1, 1 - pan), right the same with
/// min(1, 1 + pan). Every change is a ramp over the frames given (0 jumps). Starts at volume 1,
/// pan 0, fade 1, blend 1. Of two voices one of which blends in while the other blends out, the
/// powers add up to one all along.
class GainStage {
public:
    /// `volume` 0 to 1; values outside are held to it.
    void volumeTo(float volume, std::int64_t frames) noexcept;

    /// `pan` -1 (left only) to 1 (right only); values outside are held to it.
    void panTo(float pan, std::int64_t frames) noexcept;

    /// The envelope of start, stop and seek, 0 to 1; values outside are held to it.
    void fadeTo(float fade, std::int64_t frames) noexcept;

    /// The share in a crossfade, 0 to 1; values outside are held to it.
    void blendTo(float blend, std::int64_t frames) noexcept;

    /// Applies the gains to left, right, ... in place. At volume 1, pan 0, fade 1 the samples are
    /// not touched.
    void process(std::span<float> interleaved) noexcept;

    /// True when the fade has come to 0 and stays there.
    [[nodiscard]] bool faded() const noexcept { return fade_.settled() && fade_.value() == 0.0F; }

    /// True when it has come to give nothing but silence.
    [[nodiscard]] bool silent() const noexcept {
        return faded() || (volume_.settled() && volume_.value() == 0.0F) ||
               (blend_.settled() && blend_.value() == 0.0F);
    }

    [[nodiscard]] bool settled() const noexcept {
        return volume_.settled() && pan_.settled() && fade_.settled() && blend_.settled();
    }

    // Where they stand now, on their way when a ramp runs.
    [[nodiscard]] float volume() const noexcept { return volume_.value(); }

    [[nodiscard]] float pan() const noexcept { return pan_.value(); }

    [[nodiscard]] float fade() const noexcept { return fade_.value(); }

private:
    LinearRamp volume_{1.0F};
    LinearRamp pan_{0.0F};
    LinearRamp fade_{1.0F};
    LinearRamp blend_{1.0F};
};

} // namespace tovik::sound
