// SPDX-License-Identifier: GPL-3.0-or-later
// The filters of channels. Interface thread only.
#pragma once

#include "sound/api/EffectOperations.h"
#include "sound/engine/EngineCore.h"

namespace tovik::sound {

class EffectCalls : public virtual EffectOperations {
public:
    explicit EffectCalls(EngineCore& core) : core_(core) {}

    Handle BASS_ChannelSetFX(Handle handle, std::uint32_t type) override;
    bool BASS_FXGetParameters(Handle effect, BASS_FXPARAMEQ& parameters) override;
    bool BASS_FXSetParameters(Handle effect, const BASS_FXPARAMEQ& parameters) override;

private:
    EngineCore& core_;
};

} // namespace tovik::sound
