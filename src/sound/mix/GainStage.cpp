// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/GainStage.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace tovik::sound {

namespace {

struct StereoGain {
    float left;
    float right;
};

/// Not a number becomes `lowest`.
float held(float value, float lowest, float highest) noexcept {
    return value > lowest ? std::min(value, highest) : lowest;
}

/// The quarter of a sine: two blends that add up to one have powers that do.
float powerShare(float blend) noexcept {
    return blend >= 1.0F ? 1.0F : std::sin(blend * (std::numbers::pi_v<float> / 2.0F));
}

StereoGain gainOf(float volume, float pan, float fade) noexcept {
    const float both = volume * fade;
    return {both * std::min(1.0F, 1.0F - pan), both * std::min(1.0F, 1.0F + pan)};
}

void scale(std::span<float> interleaved, StereoGain gain) noexcept {
    for (std::size_t i = 0; i + 1 < interleaved.size(); i += 2) {
        interleaved[i] *= gain.left;
        interleaved[i + 1] *= gain.right;
    }
}

} // namespace

void GainStage::volumeTo(float volume, std::int64_t frames) noexcept {
    volume_.rampTo(held(volume, 0.0F, 1.0F), frames);
}

void GainStage::panTo(float pan, std::int64_t frames) noexcept {
    pan_.rampTo(held(pan, -1.0F, 1.0F), frames);
}

void GainStage::fadeTo(float fade, std::int64_t frames) noexcept {
    fade_.rampTo(held(fade, 0.0F, 1.0F), frames);
}

void GainStage::blendTo(float blend, std::int64_t frames) noexcept {
    blend_.rampTo(held(blend, 0.0F, 1.0F), frames);
}

void GainStage::process(std::span<float> interleaved) noexcept {
    std::size_t done = 0;
    while (done + 1 < interleaved.size() && !settled()) {
        const StereoGain gain = gainOf(
            volume_.next(), pan_.next(), fade_.next() * powerShare(blend_.next()));
        interleaved[done] *= gain.left;
        interleaved[done + 1] *= gain.right;
        done += 2;
    }
    const StereoGain gain = gainOf(
        volume_.value(), pan_.value(), fade_.value() * powerShare(blend_.value()));
    if (gain.left != 1.0F || gain.right != 1.0F) {
        scale(interleaved.subspan(done), gain);
    }
}

} // namespace tovik::sound
