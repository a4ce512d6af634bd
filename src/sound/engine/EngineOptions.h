// SPDX-License-Identifier: GPL-3.0-or-later
// How an engine is to run. Any thread.
#pragma once

#include "sound/cd/DriveOptions.h"
#include "sound/decode/Decoder.h"
#include "sound/engine/Feeder.h"
#include "sound/net/NetStream.h"
#include "sound/output/DeviceKeeper.h"

#include <chrono>
#include <functional>
#include <string>

namespace tovik::sound {

struct EngineOptions {
    /// Where decoding happens: ahead in a thread of its own, or in the thread of a device that is
    /// stepped by hand (a render).
    FeederMode feeder = FeederMode::ownThread;

    /// Hears of losses of the device, on a thread of the engine; may be null, else outlives it.
    DeviceObserver* observer = nullptr;

    KeeperTimes keeperTimes{};

    /// How long a create operation waits for a file to open.
    std::chrono::milliseconds openPatience{2000};

    /// How files are opened; a test puts a disk that stalls here. Called on a thread of the engine,
    /// which may outlive the engine.
    std::function<OpenResult(FormatFamily, const std::string& path, OpenOptions)> openFile =
        [](FormatFamily family, const std::string& path, OpenOptions how) {
            return openDecoder(family, path, how);
        };

    /// The program in which plug-ins draw (`visualHost` in `sound/engine/ProgramParts.h`); empty:
    /// there are none.
    std::string visualHost{};

    /// How streams from the Internet are had.
    NetOptions net{};

    /// The drives of audio CDs; none unless told.
    DriveOptions drives{};
};

} // namespace tovik::sound
