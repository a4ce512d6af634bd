// SPDX-License-Identifier: GPL-3.0-or-later
// Operations on the output as a whole. Interface thread only.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>

namespace tovik::sound {

class DeviceOperations {
public:
    virtual ~DeviceOperations() = default;

    /// High half 0, low half 2.
    [[nodiscard]] virtual std::uint32_t BASS_GetVersion() = 0;

    /// Makes a fresh state without channels, un-paused. `device` must be 1 and `freq` 44100;
    /// `flags`, `window` and `clsid` are accepted for the sake of the call's form. Fails without a
    /// device at the first call (noDriver); after one success it succeeds also while the device is
    /// away, and sound comes back with a device. Fails when already initialized.
    [[nodiscard]] virtual bool BASS_Init(int device, std::uint32_t freq, std::uint32_t flags,
                                         std::uintptr_t window, std::uintptr_t clsid) = 0;

    /// Kills every handle and silences. Fails when not initialized.
    virtual bool BASS_Free() = 0;

    /// Lets a paused or stopped output sound again.
    virtual bool BASS_Start() = 0;

    /// Pauses the output; channels keep their positions. Fails when paused already (notPlaying).
    virtual bool BASS_Pause() = 0;

    /// Stops every channel and the output.
    virtual bool BASS_Stop() = 0;

    /// The engine's own master volume, 0 to 100; BASS_Init does not reset it.
    virtual bool BASS_SetVolume(int percent) = 0;

    /// Fills `info`; its `size` must be 60 (else illegalParameter).
    virtual bool BASS_GetInfo(BASS_INFO& info) = 0;

    /// Sets option `option` to `value`; returns the value before. Option 9 (how often the format of
    /// a channel is looked at again) is the only one known; others give 0xFFFFFFFF.
    virtual std::uint32_t BASS_SetConfig(std::uint32_t option, std::uint32_t value) = 0;

    /// Why the last operation failed; ok after one that succeeded.
    [[nodiscard]] virtual ErrorCode BASS_ErrorGetCode() = 0;
};

} // namespace tovik::sound
