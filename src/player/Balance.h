// SPDX-License-Identifier: GPL-3.0-or-later
// The balance: its nine steps, and the pan of the channels. Interface thread.
#pragma once

#include "player/Core.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tovik::player {

/// The steps that a user can choose, from left to right.
inline constexpr std::array<std::int16_t, 9> kBalanceSteps = {-100, -75, -50, -25, 0,
                                                              25,   50,  75,  100};

class Balance {
public:
    /// Kept by reference.
    explicit Balance(const Core& core) : core_(core) {}

    /// A balance, -100 to 100, becomes the pan of the active channel and is shown.
    void ApplyBalance(std::int16_t pan);

    /// Step 0 to 8 becomes the balance of both channels. Whether there is such a step.
    bool Balbar_Click(std::int16_t index);

private:
    const Core& core_;
};

} // namespace tovik::player
