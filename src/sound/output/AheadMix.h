// SPDX-License-Identifier: GPL-3.0-or-later
// The book-keeping of a device that mixes ahead: which frames of its queue are which of the mix,
// and what has to be written anew. Used by one thread at a time.
#pragma once

#include "sound/output/OutputDevice.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::sound {

/// The queue of a device. Frames are counted from the first one ever put into it.
class FrameQueue {
public:
    virtual ~FrameQueue() = default;

    /// Memory for whole blocks of MixSource::kAheadBlock frames, for `frames` at most; empty when
    /// the device fails.
    [[nodiscard]] virtual std::span<float> room(std::size_t frames) noexcept = 0;

    /// Puts samples, which fill what `room` gave last, into the queue at `frame`: behind the last
    /// ones, or over some of them.
    virtual void put(std::int64_t frame, std::span<const float> samples) noexcept = 0;
};

class AheadMix {
public:
    /// Both outlive it.
    AheadMix(MixSource& source, FrameQueue& queue) : source_(source), queue_(queue) {}

    /// Taking begins, or goes on where `end` has left off.
    void begin() noexcept;

    [[nodiscard]] bool running() const noexcept { return running_; }

    /// Takes `frames` more, or somewhat more: whole blocks. `heard` is the frame that is heard now.
    void fill(std::size_t frames, std::int64_t heard) noexcept;

    /// Takes back and takes anew what has changed in the source, from `earliest` on at the soonest.
    void change(std::int64_t earliest) noexcept;

    /// Takes back what lies behind `heard`. What lies between that and the next frame taken stays
    /// in the queue.
    void end(std::int64_t heard) noexcept;

    /// The frame that is taken next.
    [[nodiscard]] std::int64_t written() const noexcept { return written_; }

    /// The source's clock at a frame of the queue; only after the first `begin`.
    [[nodiscard]] std::int64_t clockAt(std::int64_t frame) const noexcept { return frame + base_; }

private:
    void take(std::size_t frames) noexcept;

    MixSource& source_;
    FrameQueue& queue_;
    std::int64_t base_ = 0; ///< the source's clock at frame 0
    std::int64_t written_ = 0;
    bool begun_ = false;
    bool running_ = false;
};

} // namespace tovik::sound
