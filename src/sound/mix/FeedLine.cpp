// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/FeedLine.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

std::size_t FeedLine::Cursor::read(std::span<float> block) noexcept {
    const std::size_t frames = feed->read(taken, block);
    taken += static_cast<std::int64_t>(frames);
    return frames;
}

void FeedLine::free(Cursor& cursor) noexcept {
    if (cursor.feed != nullptr) {
        freed_[freedCount_++] = std::exchange(cursor, {}).feed;
    }
}

void FeedLine::queue(Feed& feed) noexcept {
    free(next_);
    next_ = {&feed};
}

void FeedLine::jump() noexcept {
    free(outgoing_);
    crossfade_.jumpTo(1.0F);
    if (next_.feed != nullptr) {
        free(now_);
        now_ = std::exchange(next_, {});
    }
}

void FeedLine::crossfade() noexcept {
    if (next_.feed != nullptr && outgoing_.feed == nullptr) {
        outgoing_ = std::exchange(now_, std::exchange(next_, {}));
        crossfade_.jumpTo(0.0F);
        crossfade_.rampTo(1.0F, kRampFrames);
    }
}

void FeedLine::mixOutgoing(std::span<float> block) noexcept {
    std::array<float, kMaxBlockFrames * 2> old{};
    outgoing_.read(std::span(old).first(block.size()));
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

std::size_t FeedLine::read(std::span<float> block) noexcept {
    const std::size_t frames = now_.read(block);
    std::ranges::fill(block.subspan(frames * 2), 0.0F);
    if (outgoing_.feed != nullptr) {
        mixOutgoing(block);
    }
    return frames;
}

void FeedLine::release() const noexcept {
    for (const Cursor& cursor : {now_, outgoing_}) {
        if (cursor.feed != nullptr) {
            cursor.feed->release(cursor.taken);
        }
    }
}

void FeedLine::goBack() const noexcept {
    for (const Cursor& cursor : {now_, outgoing_, next_}) {
        if (cursor.feed != nullptr) {
            cursor.feed->goBack(cursor.taken);
        }
    }
}

} // namespace tovik::sound
