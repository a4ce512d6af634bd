// SPDX-License-Identifier: GPL-3.0-or-later
// Where the mix goes: a real device, a WAV file, or a simulated device. Owned and driven by the
// keeper of the device; the mix is taken on a thread of the device (or, for devices that are
// stepped by hand, on the thread that steps them).
#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace tovik::sound {

inline constexpr int kMixRate = 44100; ///< frames a second inside the engine
inline constexpr int kMixChannels = 2; ///< interleaved left, right

/// What a device takes its samples from.
class MixSource {
public:
    virtual ~MixSource() = default;

    /// Fills `interleaved` (left, right, ...). Real-time safe: no lock, no allocation, no file.
    virtual void mix(std::span<float> interleaved) noexcept = 0;

    /// For devices that are not bound to real time: waits until `frames` can be mixed without
    /// running dry. Not real-time safe.
    virtual void decodeAhead(std::size_t frames) = 0;
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

    /// Frames between the taking of a sample and its sounding. Any thread.
    [[nodiscard]] virtual int latencyFrames() const noexcept = 0;

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
