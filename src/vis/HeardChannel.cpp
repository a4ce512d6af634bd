// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/HeardChannel.h"

#include <algorithm>
#include <cstdint>

namespace tovik::vis {

namespace {

constexpr std::int16_t kSecondaryLeg = 1;
constexpr std::int16_t kPrimaryLeg = 2;

} // namespace

sound::Handle heardChannel(const player::PlayerState& state) {
    if (state.ActiveChannel != player::ChannelSlot::none) {
        return state.active();
    }
    switch (state.CrossfadeLeg) {
    case kPrimaryLeg:
        return state.PrimaryChannel;
    case kSecondaryLeg:
        return state.SecondaryChannel;
    default:
        return sound::kNoHandle;
    }
}

bool mayMove(const player::PlayerState& state, const VisualArea& area) {
    return state.IsPlaying && !state.IsPaused && area.canBeSeen();
}

int intervalOf(int milliseconds) {
    return milliseconds == 0 ? 0 : std::clamp(milliseconds, kFastestMs, kSlowestMs);
}

} // namespace tovik::vis
