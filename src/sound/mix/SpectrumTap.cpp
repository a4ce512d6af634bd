// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/SpectrumTap.h"

namespace tovik::sound {

namespace {

constexpr std::int32_t kWantedFrames = 22050; ///< half a second

} // namespace

void SpectrumTap::write(std::span<const float> interleaved) noexcept {
    if (wanted_.load(std::memory_order_relaxed) <= 0) {
        asleep_ = true;
        return;
    }
    std::size_t at = written_.load(std::memory_order_relaxed);
    if (asleep_) {
        asleep_ = false;
        wokenAt_.store(at, std::memory_order_relaxed);
    }
    for (std::size_t i = 0; i + 1 < interleaved.size(); i += 2) {
        frames_[at++ % kCapacity].store(0.5F * (interleaved[i] + interleaved[i + 1]),
                                        std::memory_order_relaxed);
    }
    written_.store(at, std::memory_order_release);
    wanted_.fetch_sub(static_cast<std::int32_t>(interleaved.size() / 2), std::memory_order_relaxed);
}

void SpectrumTap::latest(std::span<float> mono, std::size_t behind) noexcept {
    const bool missed = wanted_.exchange(kWantedFrames, std::memory_order_relaxed) <= 0;
    const std::size_t written = written_.load(std::memory_order_acquire);
    // The ring counts whole turns only once so many frames were noted since it woke.
    const std::size_t known = missed ? 0 : written - wokenAt_.load(std::memory_order_relaxed);
    for (std::size_t i = 0; i < mono.size(); ++i) {
        const std::size_t back = behind + mono.size() - i;
        mono[i] = back <= known && back <= kCapacity
                      ? frames_[(written - back) % kCapacity].load(std::memory_order_relaxed)
                      : 0.0F;
    }
}

} // namespace tovik::sound
