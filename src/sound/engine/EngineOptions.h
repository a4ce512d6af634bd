// SPDX-License-Identifier: GPL-3.0-or-later
// How an engine is to run. Any thread.
#pragma once

#include "sound/engine/Feeder.h"
#include "sound/output/DeviceKeeper.h"

namespace tovik::sound {

struct EngineOptions {
    /// Where decoding happens: ahead in a thread of its own, or in the thread of a device that is
    /// stepped by hand (a render).
    FeederMode feeder = FeederMode::ownThread;

    /// Hears of losses of the device, on a thread of the engine; may be null, else outlives it.
    DeviceObserver* observer = nullptr;

    KeeperTimes keeperTimes{};
};

} // namespace tovik::sound
