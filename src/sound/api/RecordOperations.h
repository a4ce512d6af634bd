// SPDX-License-Identifier: GPL-3.0-or-later
// Recording. The one input is "Stereo Out", the engine's own mix as it goes to the device.
// Interface thread only, except where told.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace tovik::sound {

/// Takes 16-bit interleaved samples on a thread of the engine; false ends the recording.
using RecordRoutine = std::function<bool(Handle recording, std::span<const std::int16_t> samples,
                                         std::uintptr_t user)>;

class RecordOperations {
public:
    virtual ~RecordOperations() = default;

    /// `device` must be 0.
    virtual bool BASS_RecordInit(int device) = 0;

    /// The name of input `index`, counted from 0; nothing beyond the last.
    [[nodiscard]] virtual std::optional<std::string> BASS_RecordGetInputName(int index) = 0;

    /// `setting` is index | 0x20000 to switch an input on, | 0x10000 to switch it off.
    virtual bool BASS_RecordSetInput(std::uint32_t setting) = 0;

    /// Starts recording at `freq` Hz (44100 only) with `channels` channels (2 only). Without a
    /// routine nothing is delivered and nothing is spent.
    virtual Handle BASS_RecordStart(std::uint32_t freq, std::uint32_t channels,
                                    RecordRoutine routine, std::uintptr_t user) = 0;

    virtual bool BASS_RecordFree() = 0;
};

} // namespace tovik::sound
