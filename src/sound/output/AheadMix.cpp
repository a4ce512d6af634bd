// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/AheadMix.h"

namespace tovik::sound {

void AheadMix::begin() noexcept {
    const std::int64_t clock = source_.beginAhead();
    if (!begun_) {
        base_ = clock;
        begun_ = true;
    }
    written_ = clock - base_;
    running_ = true;
}

void AheadMix::fill(std::size_t frames, std::int64_t heard) noexcept {
    source_.settle(clockAt(heard));
    take(frames);
}

void AheadMix::change(std::int64_t earliest) noexcept {
    const auto clock = source_.takeBack(clockAt(earliest));
    if (!clock) {
        return;
    }
    const std::int64_t end = written_;
    written_ = *clock - base_;
    take(static_cast<std::size_t>(end - written_));
}

void AheadMix::end(std::int64_t heard) noexcept {
    if (running_) {
        source_.endAhead(clockAt(heard));
        running_ = false;
    }
}

void AheadMix::take(std::size_t frames) noexcept {
    constexpr std::size_t kBlock = MixSource::kAheadBlock;
    std::size_t left = (frames + kBlock - 1) / kBlock * kBlock;
    while (left > 0) {
        const std::span<float> room = queue_.room(left);
        if (room.empty()) {
            return;
        }
        source_.mixAhead(room);
        queue_.put(written_, room);
        written_ += static_cast<std::int64_t>(room.size() / kMixChannels);
        left -= room.size() / kMixChannels;
    }
}

} // namespace tovik::sound
