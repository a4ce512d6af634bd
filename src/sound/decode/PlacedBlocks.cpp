// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/PlacedBlocks.h"

#include <algorithm>

namespace tovik::sound {
namespace {

// A longer jump, or one back, is a joint between recordings and not a hole in one.
constexpr std::int64_t kLongestHoleSeconds = 10;

} // namespace

PlacedBlocks::PlacedBlocks(int rate, int channels) noexcept
    : channels_(static_cast<std::size_t>(channels)), longestHole_(kLongestHoleSeconds * rate) {}

std::span<float> PlacedBlocks::put(std::int64_t place, std::size_t frames) {
    const std::int64_t hole = place + shift_ - position_;
    if (hole < 0 || hole > longestHole_) {
        shift_ -= hole;
    } else {
        silence_ = hole;
    }
    block_.resize(frames * channels_);
    taken_ = 0;
    return block_;
}

std::size_t PlacedBlocks::take(std::span<float> interleaved) noexcept {
    const std::size_t wanted = interleaved.size() / channels_;
    const std::size_t silent = std::min(wanted, static_cast<std::size_t>(silence_));
    std::ranges::fill(interleaved.first(silent * channels_), 0.0F);
    silence_ -= static_cast<std::int64_t>(silent);
    const std::size_t samples = std::min((wanted - silent) * channels_, block_.size() - taken_);
    std::copy_n(block_.begin() + static_cast<std::ptrdiff_t>(taken_), samples,
                interleaved.begin() + static_cast<std::ptrdiff_t>(silent * channels_));
    taken_ += samples;
    const std::size_t given = silent + samples / channels_;
    position_ += static_cast<std::int64_t>(given);
    return given;
}

void PlacedBlocks::standAt(std::int64_t position) noexcept {
    position_ = position;
    shift_ = 0;
    silence_ = 0;
    block_.clear();
    taken_ = 0;
}

} // namespace tovik::sound
