// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Heard.h"

#include <algorithm>
#include <cstdint>

namespace tovik::sound {

void lookAtHeard(EngineCore& core, Channel& channel, std::span<SpectrumTap::Frame> frames) {
    const std::int64_t clock = core.heardClock();
    SpectrumTap& tap = channel.voice()->spectrumTap();
    std::size_t end = tap.written();
    if (const auto block = channel.voice()->heard(clock)) {
        end = static_cast<std::size_t>(
            block->tapped + std::clamp<std::int64_t>(clock - block->clock, 0, block->frames));
    }
    if (!tap.look(frames, end)) {
        core.post(command::LookAt{channel.voice()});
    }
}

} // namespace tovik::sound
