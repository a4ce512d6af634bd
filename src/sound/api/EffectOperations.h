// SPDX-License-Identifier: GPL-3.0-or-later
// Filters of a channel. Interface thread only.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>

namespace tovik::sound {

class EffectOperations {
public:
    virtual ~EffectOperations() = default;

    /// Adds a filter of `type` (BASS_FX_PARAMEQ only; else illegalType), flat until its parameters
    /// are set. Ten a channel at most (noFreeChannel). A stream must have been made with
    /// BASS_SAMPLE_FX (effectsNotEnabled); modules always take filters. Dies with its channel.
    [[nodiscard]] virtual Handle BASS_ChannelSetFX(Handle channel, std::uint32_t type) = 0;

    virtual bool BASS_FXGetParameters(Handle effect, BASS_FXPARAMEQ& parameters) = 0;

    /// A peaking filter after R. Bristow-Johnson's "Audio EQ Cookbook". Any finite gain; a centre
    /// at or above half the rate of the mix leaves the sound as it is. Takes effect over a few
    /// milliseconds.
    virtual bool BASS_FXSetParameters(Handle effect, const BASS_FXPARAMEQ& parameters) = 0;
};

} // namespace tovik::sound
