// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard of a channel just now. Interface thread only.
#pragma once

#include "sound/engine/EngineCore.h"
#include "sound/mix/SpectrumTap.h"

#include <span>

namespace tovik::sound {

/// Fills `frames` with what was heard last, before bands and volume; 0 for what is not known, as at
/// the first look of a while.
void lookAtHeard(EngineCore& core, Channel& channel, std::span<SpectrumTap::Frame> frames);

/// Both sides in one.
[[nodiscard]] constexpr float meanOf(const SpectrumTap::Frame& frame) noexcept {
    return 0.5F * (frame.left + frame.right);
}

} // namespace tovik::sound
