// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/SpectrumTap.h"

#include <algorithm>

namespace tovik::sound {

namespace {

constexpr std::int64_t kWantedFrames = 22050; ///< half a second

} // namespace

std::size_t SpectrumTap::write(std::size_t at, std::span<const float> interleaved) noexcept {
    if (wanted_.load(std::memory_order_relaxed) <= 0) {
        asleep_ = true;
        return at;
    }
    if (asleep_) {
        asleep_ = false;
        wokenAt_.store(at, std::memory_order_relaxed);
    } else if (at < wokenAt_.load(std::memory_order_relaxed)) {
        wokenAt_.store(at, std::memory_order_relaxed);
    }
    for (std::size_t i = 0; i + 1 < interleaved.size(); i += 2) {
        frames_[at++ % frames_.size()].store({interleaved[i], interleaved[i + 1]},
                                             std::memory_order_relaxed);
    }
    written_.store(at, std::memory_order_release);
    wanted_.fetch_sub(static_cast<std::int64_t>(interleaved.size() / 2), std::memory_order_relaxed);
    return at;
}

bool SpectrumTap::look(std::span<Frame> latest, std::size_t end) noexcept {
    // What is mixed ahead, perhaps more than once, is noted ahead as well.
    const auto ahead =
        static_cast<std::int64_t>(frames_.size() > kCapacity ? 2 * frames_.size() : 0);
    const bool missed = wanted_.exchange(kWantedFrames + ahead, std::memory_order_relaxed) <= 0;
    const std::size_t written = written_.load(std::memory_order_acquire);
    const std::size_t last = std::min(end, written);
    // The ring counts whole turns only once so many frames were noted since it woke.
    const std::size_t known = missed ? 0 : last - std::min(last, wokenAt_.load());
    for (std::size_t i = 0; i < latest.size(); ++i) {
        const std::size_t back = latest.size() - i;
        const bool kept = back <= known && written - last + back <= frames_.size();
        latest[i] = kept ? frames_[(last - back) % frames_.size()].load(std::memory_order_relaxed)
                         : Frame{};
    }
    return !missed;
}

} // namespace tovik::sound
