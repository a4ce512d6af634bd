// SPDX-License-Identifier: GPL-3.0-or-later
// Where the mix goes: a real device, a WAV file, or a simulated device. Owned and driven by the
// keeper of the device; the mix is taken on a thread of the device (or, for devices that are
// stepped by hand, on the thread that steps them).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace tovik::sound {

inline constexpr int kMixRate = 44100; ///< frames a second inside the engine
inline constexpr int kMixChannels = 2; ///< interleaved left, right

/// What a device takes its samples from. Called by one thread of the device at a time. A device
/// that plays what it takes within some ten milliseconds calls `mix` alone. One that queues about a
/// second mixes ahead instead, in whole blocks, and takes back and mixes again what has changed;
/// the source's clock counts what was taken and not taken back.
class MixSource {
public:
    virtual ~MixSource() = default;

    /// Fills `interleaved` (left, right, ...). Real-time safe: no lock, no allocation, no file.
    virtual void mix(std::span<float> interleaved) noexcept = 0;

    /// For devices that are not bound to real time: waits until `frames` can be mixed without
    /// running dry. Not real-time safe.
    virtual void decodeAhead(std::size_t frames) = 0;

    // Mixing ahead: between `beginAhead` and `endAhead`, `mix` is not called. No call fails or
    // waits for anything but another thread's turn, which is short.

    /// Frames of a block: `mixAhead` is asked for multiples of it.
    static constexpr std::size_t kAheadBlock = 512;

    /// Taking begins at the clock that this returns.
    virtual std::int64_t beginAhead() noexcept { return 0; }

    virtual void mixAhead(std::span<float> interleaved) noexcept { mix(interleaved); }

    /// What lies before the clock `heard` was heard and is never taken back.
    virtual void settle(std::int64_t /*heard*/) noexcept {}

    /// If something has changed, takes back what lies behind `earliest`, as near to it as can be,
    /// and returns the clock from which on all has to be taken again.
    [[nodiscard]] virtual std::optional<std::int64_t> takeBack(std::int64_t /*earliest*/) noexcept {
        return std::nullopt;
    }

    /// Takes back what lies behind `heard`, as near to it as can be; taking ends. It may be begun
    /// again at the clock where this leaves off.
    virtual void endAhead(std::int64_t /*heard*/) noexcept {}
};

class OutputDevice {
public:
    virtual ~OutputDevice() = default;

    /// Opens the device and begins to take from `source`, which must outlive `close`. Blocks. False
    /// when there is no device; may be tried again later.
    [[nodiscard]] virtual bool open(MixSource& source) = 0;

    /// When it returns, `source` is not used any more. Blocks, on some systems over a second.
    virtual void close() = 0;

    /// While paused nothing is taken from the source.
    virtual void setPaused(bool paused) = 0;

    /// Frames between a change of the mix and its sounding. Without a queue that can be changed, it
    /// is the time between the taking of a sample and its sounding. Any thread.
    [[nodiscard]] virtual int latencyFrames() const noexcept = 0;

    /// True for a device that may mix ahead: the source keeps what it needs to go back.
    [[nodiscard]] virtual bool mixesAhead() const noexcept { return false; }

    /// While mixing ahead, or paused in it: the source's clock that is heard now. Else nothing. Any
    /// thread.
    [[nodiscard]] virtual std::optional<std::int64_t> heardClock() const noexcept {
        return std::nullopt;
    }

    /// Something has changed in the source: a device that mixes ahead looks soon whether it has to
    /// take something back. Any thread, never waits.
    virtual void wake() noexcept {}

    /// True when `open` leaves the device paused.
    [[nodiscard]] virtual bool opensPaused() const noexcept { return false; }

    /// False for devices that cost nothing while idle and are stepped by hand: they are neither
    /// paused nor closed when there is nothing to play.
    [[nodiscard]] virtual bool restsWhenIdle() const noexcept { return true; }

    /// `routine` is called, on a thread of the device, when an open device is lost. Set before
    /// `open`. The device must still be closed by its owner.
    virtual void onLost(std::function<void()> routine) = 0;

    /// `routine` is called, on a thread of the device, when a device may have come (back). A device
    /// that cannot tell never calls it. Set before `open`.
    virtual void onArrival(std::function<void()> routine) = 0;
};

} // namespace tovik::sound
