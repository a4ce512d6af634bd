// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/EffectCalls.h"

#include <cmath>

namespace tovik::sound {

namespace {

/// What a new band is set to; flat, so the place does not matter to the ear.
constexpr BASS_FXPARAMEQ kNewBand{.fCenter = 8000.0F, .fBandwidth = 12.0F, .fGain = 0.0F};

bool isFilter(const BASS_FXPARAMEQ& p) {
    return std::isfinite(p.fGain) && p.fCenter > 0 && std::isfinite(p.fCenter) &&
           p.fBandwidth > 0 && std::isfinite(p.fBandwidth);
}

} // namespace

Handle EffectCalls::BASS_ChannelSetFX(Handle handle, std::uint32_t type) {
    Channel* channel = core_.channels().find(handle);
    ErrorCode reason = ErrorCode::ok;
    if (channel == nullptr) {
        reason = ErrorCode::invalidHandle;
    } else if (type != BASS_FX_PARAMEQ) {
        reason = ErrorCode::illegalType;
    } else if (channel->isDecoding()) {
        reason = ErrorCode::decodingChannel;
    } else if (!channel->isMusic() && (channel->flags() & BASS_SAMPLE_FX) == 0) {
        reason = ErrorCode::effectsNotEnabled;
    } else if (channel->effectCount == Channel::kMaxEffects) {
        reason = ErrorCode::noFreeChannel;
    }
    if (reason != ErrorCode::ok) {
        core_.fail(reason);
        return kNoHandle;
    }
    core_.succeed();
    return core_.channels().addEffect(*channel, kNewBand);
}

bool EffectCalls::BASS_FXGetParameters(Handle effect, BASS_FXPARAMEQ& parameters) {
    const auto place = core_.channels().findEffect(effect);
    if (place.channel == nullptr) {
        return core_.fail(ErrorCode::invalidHandle);
    }
    parameters = place.channel->effects[place.slot].parameters;
    return core_.succeed();
}

bool EffectCalls::BASS_FXSetParameters(Handle effect, const BASS_FXPARAMEQ& parameters) {
    const auto place = core_.channels().findEffect(effect);
    if (place.channel == nullptr) {
        return core_.fail(ErrorCode::invalidHandle);
    }
    if (!isFilter(parameters)) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    place.channel->effects[place.slot].parameters = parameters;
    core_.post(command::SetBand{
        .voice = place.channel->voice(),
        .band = static_cast<std::int32_t>(place.slot),
        .coefficients = peakingFilter(static_cast<double>(parameters.fCenter),
                                      static_cast<double>(parameters.fBandwidth),
                                      static_cast<double>(parameters.fGain), kMixRate)});
    return core_.succeed();
}

} // namespace tovik::sound
