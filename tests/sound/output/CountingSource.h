// SPDX-License-Identifier: GPL-3.0-or-later
// A mix whose samples tell where they stand: frame n is (n, -n). The counters may be read on any
// thread.
#pragma once

#include "sound/output/OutputDevice.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace tovik::sound {

/// What the real and the silent device take at once.
inline constexpr std::size_t kBlockFrames = 1024;

class CountingSource final : public MixSource {
public:
    void mix(std::span<float> interleaved) noexcept override {
        inside_.store(true);
        std::size_t frame = frames_.load();
        for (std::size_t i = 0; i + 1 < interleaved.size(); i += 2) {
            interleaved[i] = static_cast<float>(frame);
            interleaved[i + 1] = -static_cast<float>(frame);
            ++frame;
        }
        largestBlock_.store(std::max(largestBlock_.load(), interleaved.size() / 2));
        frames_.store(frame);
        frames_.notify_all();
        inside_.store(false);
    }

    void decodeAhead(std::size_t frames) override { decodedAhead_ += frames; }

    [[nodiscard]] std::size_t frames() const { return frames_.load(); }

    [[nodiscard]] std::size_t decodedAhead() const { return decodedAhead_.load(); }

    [[nodiscard]] std::size_t largestBlock() const { return largestBlock_.load(); }

    [[nodiscard]] bool inside() const { return inside_.load(); }

    /// Waits until the mix has been taken beyond `frames`.
    void waitBeyond(std::size_t frames) const {
        for (std::size_t now = frames_.load(); now <= frames; now = frames_.load()) {
            frames_.wait(now);
        }
    }

private:
    std::atomic<std::size_t> frames_ = 0;
    std::atomic<std::size_t> decodedAhead_ = 0;
    std::atomic<std::size_t> largestBlock_ = 0;
    std::atomic<bool> inside_ = false;
};

} // namespace tovik::sound
