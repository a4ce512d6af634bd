// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/FeedLine.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

void FeedLine::free(Feed*& feed) noexcept {
    if (feed != nullptr) {
        freed_[freedCount_++] = std::exchange(feed, nullptr);
    }
}

void FeedLine::queue(Feed& feed) noexcept {
    free(next_);
    next_ = &feed;
}

void FeedLine::jump() noexcept {
    free(outgoing_);
    crossfade_.jumpTo(1.0F);
    if (next_ != nullptr) {
        free(feed_);
        feed_ = std::exchange(next_, nullptr);
    }
}

void FeedLine::crossfade() noexcept {
    if (next_ != nullptr && outgoing_ == nullptr) {
        outgoing_ = std::exchange(feed_, std::exchange(next_, nullptr));
        crossfade_.jumpTo(0.0F);
        crossfade_.rampTo(1.0F, kRampFrames);
    }
}

void FeedLine::mixOutgoing(std::span<float> block, std::int64_t clock) noexcept {
    std::array<float, kMaxBlockFrames * 2> old{};
    outgoing_->read(std::span(old).first(block.size()), clock);
    for (std::size_t i = 0; i + 1 < block.size(); i += 2) {
        const float share = crossfade_.next();
        block[i] = block[i] * share + old[i] * (1.0F - share);
        block[i + 1] = block[i + 1] * share + old[i + 1] * (1.0F - share);
    }
    if (crossfade_.settled()) {
        free(outgoing_);
        crossfade();
    }
}

std::size_t FeedLine::read(std::span<float> block, std::int64_t clock) noexcept {
    const std::size_t frames = feed_->read(block, clock);
    std::ranges::fill(block.subspan(frames * 2), 0.0F);
    if (outgoing_ != nullptr) {
        mixOutgoing(block, clock);
    }
    return frames;
}

} // namespace tovik::sound
