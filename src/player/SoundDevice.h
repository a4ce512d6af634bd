// SPDX-License-Identifier: GPL-3.0-or-later
// How the player opens its sound device. Interface thread.
#pragma once

#include "sound/SoundLibrary.h"

#include <cstdint>

namespace tovik::player {

/// Opens the first device; `window` is the number of the main window. False when there is none.
[[nodiscard]] inline bool openSoundDevice(sound::SoundLibrary& sound, std::uintptr_t window) {
    constexpr int kDevice = 1;
    constexpr std::uint32_t kRate = 44100;
    return sound.BASS_Init(kDevice, kRate, 0, window, 0);
}

} // namespace tovik::player
