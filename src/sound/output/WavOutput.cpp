// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/WavOutput.h"

#include <algorithm>
#include <array>

namespace tovik::sound {

namespace {

constexpr std::size_t kBlockFrames = 1024;

} // namespace

void WavOutput::advance(std::size_t frames) {
    const base::MutexLock lock(mutex_);
    if (source_ == nullptr || paused_) {
        return;
    }
    std::array<float, kBlockFrames * kMixChannels> block{};
    while (frames > 0) {
        const std::size_t now = std::min(frames, kBlockFrames);
        const std::span<float> samples(block.data(), now * kMixChannels);
        source_->decodeAhead(now);
        source_->mix(samples);
        writer_->write(samples);
        frames -= now;
    }
}

bool WavOutput::ok() const {
    const base::MutexLock lock(mutex_);
    return writer_ == nullptr || writer_->ok();
}

std::string WavOutput::error() const {
    const base::MutexLock lock(mutex_);
    return writer_ == nullptr ? std::string() : writer_->error();
}

bool WavOutput::open(MixSource& source) {
    const base::MutexLock lock(mutex_);
    writer_ = std::make_unique<WavWriter>(path_, kMixRate, kMixChannels);
    if (!writer_->ok()) {
        return false;
    }
    source_ = &source;
    paused_ = false;
    return true;
}

void WavOutput::close() {
    const base::MutexLock lock(mutex_);
    source_ = nullptr;
    if (writer_ != nullptr) {
        writer_->close();
    }
}

void WavOutput::setPaused(bool paused) {
    const base::MutexLock lock(mutex_);
    paused_ = paused;
}

} // namespace tovik::sound
