// SPDX-License-Identifier: GPL-3.0-or-later
// The feed that a voice plays, the one before it while that fades out, and the one that waits. Used
// on the thread that mixes.
#pragma once

#include "sound/mix/Feed.h"
#include "sound/mix/LinearRamp.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::sound {

/// Length of the ramp that every start, stop, pause, seek and change of gain takes: 5 ms.
inline constexpr std::int32_t kRampFrames = 220;

/// Blocks longer than this are mixed in pieces.
inline constexpr std::size_t kMaxBlockFrames = 1024;

class FeedLine {
public:
    explicit FeedLine(Feed& first) noexcept : feed_(&first) {}

    /// `feed` is to be played next, in place of one that still waits.
    void queue(Feed& feed) noexcept;

    /// Ends a running crossfade and goes over to the feed that waits, if any, at once.
    void jump() noexcept;

    /// Goes over to the feed that waits across a crossfade; after the running one if there is one.
    void crossfade() noexcept;

    [[nodiscard]] bool crossfading() const noexcept { return outgoing_ != nullptr; }

    /// Nothing of what it plays now was taken yet.
    [[nodiscard]] bool untouched() const noexcept { return !crossfading() && feed_->untouched(); }

    /// Every sample of what it plays now was taken.
    [[nodiscard]] bool drained() const noexcept { return !crossfading() && feed_->drained(); }

    /// It stands at the head of the channel, and nothing of that was taken yet.
    [[nodiscard]] bool atHead() const noexcept { return untouched() && feed_->anchorFrame() == 0; }

    /// Fills `block`, with silence where there is nothing to play, and returns how many frames the
    /// current feed gave. `clock` as for Feed::read.
    std::size_t read(std::span<float> block, std::int64_t clock) noexcept;

    /// Nothing is missing when `read` gives few frames: it is the end.
    [[nodiscard]] bool complete() const noexcept { return feed_->isComplete(); }

    /// The next feed that is not used any more, or null. To be asked after each call that may go
    /// over to another feed.
    [[nodiscard]] Feed* takeFreed() noexcept {
        return freedCount_ > 0 ? freed_[--freedCount_] : nullptr;
    }

private:
    void free(Feed*& feed) noexcept;
    void mixOutgoing(std::span<float> block, std::int64_t clock) noexcept;

    Feed* feed_;
    Feed* outgoing_ = nullptr;   ///< the feed before a seek, on its way out
    Feed* next_ = nullptr;       ///< waits for its turn
    LinearRamp crossfade_{1.0F}; ///< share of `feed_`; the rest is `outgoing_`
    std::array<Feed*, 4> freed_{};
    std::size_t freedCount_ = 0;
};

} // namespace tovik::sound
