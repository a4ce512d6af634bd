// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/MixConverter.h"

#include "sound/output/OutputDevice.h"

namespace tovik::sound {

MixConverter::MixConverter(int rate, int channels, std::size_t sliceFrames)
    : channels_(channels),
      resampler_(rate == kMixRate ? nullptr : Resampler::create(rate, channels)),
      mostFrames_(resampler_ != nullptr ? resampler_->mostOutput(sliceFrames) : sliceFrames),
      stereo_(mostFrames_ * kMixChannels) {}

std::span<const float> MixConverter::convert(std::span<const float> decoded) {
    std::size_t frames = 0;
    if (resampler_ != nullptr) {
        frames = resampler_->process(decoded, stereo_);
    } else if (channels_ == kMixChannels) {
        return decoded;
    } else {
        frames = decoded.size();
        doubleMono(decoded, std::span(stereo_).first(frames * kMixChannels));
    }
    return std::span<const float>(stereo_).first(frames * kMixChannels);
}

std::span<const float> MixConverter::flush() {
    const std::size_t frames = resampler_ != nullptr ? resampler_->flush(stereo_) : 0;
    return std::span<const float>(stereo_).first(frames * kMixChannels);
}

void MixConverter::reset() noexcept {
    if (resampler_ != nullptr) {
        resampler_->reset();
    }
}

} // namespace tovik::sound
