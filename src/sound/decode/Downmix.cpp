// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Downmix.h"

#include <array>
#include <numbers>

namespace tovik::sound {
namespace {

constexpr float kThreeDown = static_cast<float>(1.0 / std::numbers::sqrt2);
constexpr std::size_t kMaskBits = 18;

using enum Speaker;

/// By the number of channels; RFC 9639, 9.1.3, which WAV files without a mask follow, too.
constexpr std::array<std::array<Speaker, 8>, 9> kUsual = {{
    {},
    {frontCentre},
    {frontLeft, frontRight},
    {frontLeft, frontRight, frontCentre},
    {frontLeft, frontRight, backLeft, backRight},
    {frontLeft, frontRight, frontCentre, backLeft, backRight},
    {frontLeft, frontRight, frontCentre, bass, backLeft, backRight},
    {frontLeft, frontRight, frontCentre, bass, backCentre, sideLeft, sideRight},
    {frontLeft, frontRight, frontCentre, bass, backLeft, backRight, sideLeft, sideRight},
}};

} // namespace

std::vector<Speaker> usualSpeakers(std::size_t channels) {
    std::vector<Speaker> speakers(channels, unknown);
    if (channels < kUsual.size()) {
        speakers.assign(kUsual[channels].begin(),
                        kUsual[channels].begin() + static_cast<std::ptrdiff_t>(channels));
    }
    return speakers;
}

std::vector<Speaker> speakersOf(std::uint32_t mask, std::size_t channels) {
    std::vector<Speaker> speakers;
    for (std::size_t bit = 0; bit < kMaskBits && speakers.size() < channels; ++bit) {
        if ((mask >> bit & 1U) != 0) {
            speakers.push_back(static_cast<Speaker>(bit));
        }
    }
    return speakers.size() == channels ? speakers : usualSpeakers(channels);
}

Downmix::Downmix(std::span<const Speaker> speakers) {
    for (const Speaker speaker : speakers) {
        weights_.push_back(speakers.size() == 1 ? Weight{1.0F, 1.0F} : weightOf(speaker));
    }
}

Downmix::Weight Downmix::weightOf(Speaker speaker) noexcept {
    switch (speaker) {
    case frontLeft:
    case leftOfCentre:
        return {1.0F, 0.0F};
    case frontRight:
    case rightOfCentre:
        return {0.0F, 1.0F};
    case backLeft:
    case sideLeft:
    case topFrontLeft:
    case topBackLeft:
        return {kThreeDown, 0.0F};
    case backRight:
    case sideRight:
    case topFrontRight:
    case topBackRight:
        return {0.0F, kThreeDown};
    case frontCentre:
    case topCentre:
    case topFrontCentre:
        return {kThreeDown, kThreeDown};
    case backCentre:
    case topBackCentre:
    case unknown:
        return {0.5F, 0.5F}; // a surround channel, shared between both sides
    case bass:
        break;
    }
    return {0.0F, 0.0F};
}

void Downmix::mix(std::span<const float> interleaved, std::span<float> stereo) const noexcept {
    const std::size_t frames = stereo.size() / 2;
    for (std::size_t n = 0; n < frames; ++n) {
        const std::span<const float> frame = interleaved.subspan(n * channels(), channels());
        float left = 0.0F;
        float right = 0.0F;
        for (std::size_t c = 0; c < frame.size(); ++c) {
            left += frame[c] * weights_[c].left;
            right += frame[c] * weights_[c].right;
        }
        stereo[2 * n] = left;
        stereo[2 * n + 1] = right;
    }
}

} // namespace tovik::sound
