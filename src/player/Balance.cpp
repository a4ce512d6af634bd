// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Balance.h"

#include "base/RuntimeError.h"

namespace tovik::player {

namespace {

constexpr int kKeep = -1;

} // namespace

void Balance::ApplyBalance(std::int16_t pan) {
    core_.screen.showBalanceLevel(pan);
    if (core_.state.ActiveChannel != ChannelSlot::none) {
        core_.sound.BASS_ChannelSetAttributes(core_.state.active(), kKeep, kKeep, pan);
    }
}

bool Balance::Balbar_Click(std::int16_t index) {
    bool chosen = false;
    config::guard(core_.errors, config::player("balbar"), [&] {
        const auto step = static_cast<std::size_t>(index);
        if (step >= kBalanceSteps.size()) {
            throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
        }
        PlayerState& state = core_.state;
        state.BalanceValue = kBalanceSteps.at(step);
        core_.screen.showBalanceLevel(state.BalanceValue);
        for (const sound::Handle channel : {state.SecondaryChannel, state.PrimaryChannel}) {
            core_.sound.BASS_ChannelSetAttributes(channel, kKeep, kKeep, state.BalanceValue);
        }
        chosen = true;
    });
    return chosen;
}

} // namespace tovik::player
