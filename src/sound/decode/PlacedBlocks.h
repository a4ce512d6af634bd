// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded blocks on their way to the reader, each at its place in the track: what is missing in
// front of a block is given as silence, so that damage does not move what comes behind it. Used
// under the lock of its source, by one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tovik::sound {

class PlacedBlocks {
public:
    PlacedBlocks(int rate, int channels) noexcept;

    /// True when all of the last block was taken.
    [[nodiscard]] bool empty() const noexcept { return silence_ == 0 && taken_ == block_.size(); }

    /// Takes a block of `frames` frames that begins at frame `place`: room for its samples, to be
    /// filled by the caller. To be called while empty.
    [[nodiscard]] std::span<float> put(std::int64_t place, std::size_t frames);

    /// Gives what there is, up to the span; frames given.
    std::size_t take(std::span<float> interleaved) noexcept;

    /// Forgets everything and stands at `position`.
    void standAt(std::int64_t position) noexcept;

    /// The frame that is given next.
    [[nodiscard]] std::int64_t position() const noexcept { return position_; }

private:
    std::size_t channels_;
    std::int64_t longestHole_;
    std::int64_t position_ = 0;
    std::int64_t shift_ = 0;   ///< from the blocks' own places to where they are put
    std::int64_t silence_ = 0; ///< frames missing in front of the block
    std::vector<float> block_;
    std::size_t taken_ = 0; ///< samples of it already given
};

} // namespace tovik::sound
