// SPDX-License-Identifier: GPL-3.0-or-later
// The latest sound of a voice for whoever draws it: the mixer writes, the interface thread looks.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::sound {

class SpectrumTap {
public:
    /// Frames kept: enough to look back by the latency of a device.
    static constexpr std::size_t kCapacity = 8192;

    /// Mixer: notes the mean of both sides of left, right, ...; does nothing while nobody looks.
    void write(std::span<const float> interleaved) noexcept;

    /// Interface thread: fills `mono` with the frames that end `behind` frames before the newest.
    /// What was not noted (because nobody looked for half a second, or it lies too far back) is 0.
    /// A look that the mixer overtakes may see newer frames at its beginning.
    void latest(std::span<float> mono, std::size_t behind = 0) noexcept;

private:
    std::array<std::atomic<float>, kCapacity> frames_{};
    std::atomic<std::size_t> written_ = 0; ///< count of all frames noted
    std::atomic<std::size_t> wokenAt_ = 0; ///< the count when noting began again
    std::atomic<std::int32_t> wanted_ = 0; ///< frames still to be noted since the last look
    bool asleep_ = true;                   ///< mixer only
};

} // namespace tovik::sound
