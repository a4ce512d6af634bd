// SPDX-License-Identifier: GPL-3.0-or-later
// Time stamps of a stream as frame numbers from the start of the sound, and back. One thread at a
// time.
#pragma once

#include "sound/decode/ffmpeg/Handles.h"

#include <cstdint>

namespace tovik::sound::ffmpeg {

class TimeLine {
public:
    TimeLine() = default;

    /// `basePts` is the time stamp of frame 0.
    TimeLine(AVRational timeBase, int rate, std::int64_t basePts) noexcept
        : timeBase_(timeBase), rate_(rate), base_(basePts) {}

    [[nodiscard]] int rate() const noexcept { return rate_; }

    /// Frame number of a time stamp, or `otherwise` where there is none.
    [[nodiscard]] std::int64_t frameAt(std::int64_t pts, std::int64_t otherwise) const noexcept;

    /// Time stamp of a frame number.
    [[nodiscard]] std::int64_t ptsOf(std::int64_t frame) const noexcept;

    /// Moves frame 0, so that what stood at frame `from` stands at frame `to`.
    void shift(std::int64_t from, std::int64_t to) noexcept;

private:
    AVRational timeBase_ = {1, 1};
    int rate_ = 1;
    std::int64_t base_ = 0;
};

} // namespace tovik::sound::ffmpeg
