// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SimulatedQueue.h"

#include <algorithm>
#include <bit>

namespace tovik::sound {

SimulatedQueue::SimulatedQueue(const QueueSettings& settings, MixSource& source, bool decodesAhead)
    : settings_(settings), source_(source), decodesAhead_(decodesAhead), ahead_(source, *this),
      samples_(std::bit_ceil(settings.length + 2 * MixSource::kAheadBlock) * kMixChannels),
      block_(MixSource::kAheadBlock * kMixChannels) {}

void SimulatedQueue::begin() {
    ahead_.begin();
}

void SimulatedQueue::end() {
    ahead_.end(heard_);
}

void SimulatedQueue::change() {
    ahead_.change(heard_ + static_cast<std::int64_t>(settings_.margin));
}

std::span<const float> SimulatedQueue::hear(std::size_t frames) {
    const auto queued = static_cast<std::size_t>(ahead_.written() - heard_);
    if (queued + settings_.request <= settings_.length) {
        ahead_.fill(settings_.length - queued, heard_);
    }
    const auto ready = static_cast<std::size_t>(ahead_.written() - heard_);
    const std::size_t most = std::max<std::size_t>(settings_.request, 1);
    heardSamples_.clear();
    for (std::size_t i = 0; i < std::min({frames, ready, most}); ++i) {
        const std::size_t at =
            static_cast<std::size_t>(heard_++) * kMixChannels & (samples_.size() - 1);
        heardSamples_.push_back(samples_[at]);
        heardSamples_.push_back(samples_[at + 1]);
    }
    return heardSamples_;
}

std::span<float> SimulatedQueue::room(std::size_t /*frames*/) noexcept {
    if (decodesAhead_) {
        source_.decodeAhead(MixSource::kAheadBlock);
    }
    return block_;
}

void SimulatedQueue::put(std::int64_t frame, std::span<const float> samples) noexcept {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples_[(static_cast<std::size_t>(frame) * kMixChannels + i) & (samples_.size() - 1)] =
            samples[i];
    }
}

} // namespace tovik::sound
