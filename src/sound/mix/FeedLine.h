// SPDX-License-Identifier: GPL-3.0-or-later
// The feed that a voice plays, the one before it while that fades out, and the one that waits. Used
// on the thread that mixes. A copy of it is a place to go back to.
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
    explicit FeedLine(Feed& first) noexcept : now_{&first} {}

    /// `feed` is to be played next, in place of one that still waits.
    void queue(Feed& feed) noexcept;

    /// Ends a running crossfade and goes over to the feed that waits, if any, at once.
    void jump() noexcept;

    /// Goes over to the feed that waits across a crossfade; after the running one if there is one.
    void crossfade() noexcept;

    [[nodiscard]] bool crossfading() const noexcept { return outgoing_.feed != nullptr; }

    /// Nothing of what it plays now was taken yet.
    [[nodiscard]] bool untouched() const noexcept { return !crossfading() && now_.taken == 0; }

    /// Every sample of what it plays now was taken.
    [[nodiscard]] bool drained() const noexcept {
        return !crossfading() && now_.feed->isComplete() && exhausted();
    }

    /// Nothing more than what was taken has been decoded so far.
    [[nodiscard]] bool exhausted() const noexcept {
        return now_.taken == now_.feed->writtenFrames();
    }

    /// It stands at the head of the channel, and nothing of that was taken yet.
    [[nodiscard]] bool atHead() const noexcept {
        return untouched() && now_.feed->anchorFrame() == 0;
    }

    /// Fills `block`, with silence where there is nothing to play, and returns how many frames the
    /// current feed gave.
    std::size_t read(std::span<float> block) noexcept;

    /// Nothing is missing when `read` gives few frames: it is the end.
    [[nodiscard]] bool complete() const noexcept { return now_.feed->isComplete(); }

    /// Number of the current feed, and the frames taken from it.
    [[nodiscard]] std::uint32_t feedNumber() const noexcept { return now_.feed->number(); }

    [[nodiscard]] std::int64_t takenFrames() const noexcept { return now_.taken; }

    /// What was taken up to now will not be taken again.
    void release() const noexcept;

    /// Tells the feeds where the mixer stands, after this line was put back to an earlier place.
    void goBack() const noexcept;

    /// The next feed that is not used any more, or null. To be asked after each call that may go
    /// over to another feed.
    [[nodiscard]] Feed* takeFreed() noexcept {
        return freedCount_ > 0 ? freed_[--freedCount_] : nullptr;
    }

private:
    struct Cursor {
        Feed* feed = nullptr;
        std::int64_t taken = 0;

        std::size_t read(std::span<float> block) noexcept;
    };

    void free(Cursor& cursor) noexcept;
    void mixOutgoing(std::span<float> block) noexcept;

    Cursor now_;
    Cursor outgoing_;            ///< the feed before a seek, on its way out
    Cursor next_;                ///< waits for its turn
    LinearRamp crossfade_{1.0F}; ///< share of `now_`; the rest is `outgoing_`
    std::array<Feed*, 4> freed_{};
    std::size_t freedCount_ = 0;
};

} // namespace tovik::sound
