// SPDX-License-Identifier: GPL-3.0-or-later
// A mix for devices that mix ahead, whose samples tell where they stand: frame n is (n, g) with the
// number g of changes that it knows of. Counters may be read on any thread.
#pragma once

#include "sound/output/OutputDevice.h"

#include <algorithm>
#include <atomic>

namespace tovik::sound {

class AheadSource final : public MixSource {
public:
    void mix(std::span<float> interleaved) noexcept override {
        std::int64_t frame = clock_.load();
        const auto changes = static_cast<float>(carriedOut_.load());
        for (std::size_t i = 0; i + 1 < interleaved.size(); i += 2) {
            interleaved[i] = static_cast<float>(frame++);
            interleaved[i + 1] = changes;
        }
        clock_.store(frame);
    }

    void decodeAhead(std::size_t /*frames*/) override {}

    std::int64_t beginAhead() noexcept override {
        begun_ = true;
        return clock_;
    }

    void settle(std::int64_t heard) noexcept override { settled_ = heard; }

    std::optional<std::int64_t> takeBack(std::int64_t earliest) noexcept override {
        if (carriedOut_ == wanted_) {
            return std::nullopt;
        }
        goBack(earliest);
        changedAt_ = clock_.load();
        ++carriedOut_;
        return clock_;
    }

    void endAhead(std::int64_t heard) noexcept override {
        goBack(heard);
        begun_ = false;
    }

    /// One more change; the device is to be woken.
    void want() { ++wanted_; }

    [[nodiscard]] std::int64_t clock() const { return clock_; }

    [[nodiscard]] std::int64_t settled() const { return settled_; }

    [[nodiscard]] int carriedOut() const { return carriedOut_; }

    /// The frame from which on the last change holds.
    [[nodiscard]] std::int64_t changedAt() const { return changedAt_; }

    [[nodiscard]] bool begun() const { return begun_; }

private:
    void goBack(std::int64_t earliest) {
        constexpr std::int64_t kBlock = kAheadBlock;
        clock_ = std::min(clock_.load(),
                          (std::max<std::int64_t>(earliest, 0) + kBlock - 1) / kBlock * kBlock);
    }

    std::atomic<std::int64_t> clock_ = 0;
    std::atomic<std::int64_t> settled_ = 0;
    std::atomic<std::int64_t> changedAt_ = 0;
    std::atomic<int> wanted_ = 0;
    std::atomic<int> carriedOut_ = 0;
    std::atomic<bool> begun_ = false;
};

} // namespace tovik::sound
