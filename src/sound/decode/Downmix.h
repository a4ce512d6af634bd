// SPDX-License-Identifier: GPL-3.0-or-later
// Brings any number of channels to two: front speakers untouched, centre and surround at -3 dB on
// their sides, the bass channel left out, as ITU-R BS.775 has it. The sum may exceed full scale;
// whoever plays it guards against that. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tovik::sound {

/// Places of loudspeakers, numbered like the bits of dwChannelMask in WAVEFORMATEXTENSIBLE
/// (Microsoft, "Multiple Channel Audio Data and WAVE Files").
enum class Speaker : std::uint8_t {
    frontLeft,
    frontRight,
    frontCentre,
    bass,
    backLeft,
    backRight,
    leftOfCentre,
    rightOfCentre,
    backCentre,
    sideLeft,
    sideRight,
    topCentre,
    topFrontLeft,
    topFrontCentre,
    topFrontRight,
    topBackLeft,
    topBackCentre,
    topBackRight,
    unknown,
};

/// The speakers of `channels` channels that a file does not name: left, right, centre, bass, back.
[[nodiscard]] std::vector<Speaker> usualSpeakers(std::size_t channels);

/// The speakers that the bits of `mask` name, the usual ones when it names fewer than `channels`.
[[nodiscard]] std::vector<Speaker> speakersOf(std::uint32_t mask, std::size_t channels);

class Downmix {
public:
    /// For frames with one sample for each of `speakers`, in their order. A single one sounds on
    /// both sides at its level.
    explicit Downmix(std::span<const Speaker> speakers);

    [[nodiscard]] std::size_t channels() const noexcept { return weights_.size(); }

    /// Mixes whole frames of `interleaved` into as many frames of left, right, ...
    void mix(std::span<const float> interleaved, std::span<float> stereo) const noexcept;

private:
    struct Weight {
        float left;
        float right;
    };

    [[nodiscard]] static Weight weightOf(Speaker speaker) noexcept;

    std::vector<Weight> weights_;
};

} // namespace tovik::sound
