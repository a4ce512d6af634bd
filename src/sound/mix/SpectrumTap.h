// SPDX-License-Identifier: GPL-3.0-or-later
// The latest sound of a voice for whoever draws it: the mixer writes, the interface thread looks.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tovik::sound {

class SpectrumTap {
public:
    /// Frames kept where the mix is heard within the latency of a device, or a second later.
    static constexpr std::size_t kCapacity = 8192;
    static constexpr std::size_t kAheadCapacity = 65536;

    /// One sample of each side.
    struct Frame {
        float left = 0;
        float right = 0;
    };

    explicit SpectrumTap(std::size_t capacity = kCapacity) : frames_(capacity) {}

    /// Mixer: notes left, right, ... behind the `at` frames noted before;
    /// does nothing while nobody looks. Returns the count of frames noted then. Frames may be noted
    /// anew from an earlier count on.
    std::size_t write(std::size_t at, std::span<const float> interleaved) noexcept;

    /// Interface thread: fills `latest` with the frames before the count `end`, and says whether
    /// frames are being noted: not when nobody looked for half a second. What was not noted, or
    /// lies too far back, is 0. A look that the mixer overtakes may see newer frames at its
    /// beginning.
    bool look(std::span<Frame> latest, std::size_t end) noexcept;

    /// Interface thread: the count of frames noted.
    [[nodiscard]] std::size_t written() const noexcept {
        return written_.load(std::memory_order_acquire);
    }

private:
    static_assert(std::atomic<Frame>::is_always_lock_free);

    std::vector<std::atomic<Frame>> frames_;
    std::atomic<std::size_t> written_ = 0; ///< count of all frames noted
    std::atomic<std::size_t> wokenAt_ = 0; ///< the count when noting began again
    std::atomic<std::int64_t> wanted_ = 0; ///< frames still to be noted since the last look
    bool asleep_ = true;                   ///< mixer only
};

} // namespace tovik::sound
