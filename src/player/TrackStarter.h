// SPDX-License-Identifier: GPL-3.0-or-later
// Makes an opened channel sound: device, equalizer, balance, volume and the play calls, in the
// order of each way to start. Plain starts and crossfades share it. Interface thread.
#pragma once

#include "player/Balance.h"
#include "player/Core.h"
#include "player/PlayerHandle.h"
#include "player/StartEqualizer.h"
#include "player/Volume.h"

#include <cstdint>
#include <span>
#include <string>

namespace tovik::player {

class TrackStarter {
public:
    /// All of them outlive the object.
    TrackStarter(const Core& core, Volume& volume, Balance& balance, StartEqualizer& equalizer,
                 const PlayerHandle& window)
        : core_(core), volume_(volume), balance_(balance), equalizer_(equalizer), window_(window) {}

    /// Silences what sounds and frees both channels; the device itself stays open behind it.
    void resetDevice();

    /// For a device that was just reset: also reads where the volume goes.
    void startPlainly(sound::Handle channel, const std::string& path);

    /// Beside another channel that goes on; its own channel is the active one already. The balance
    /// is set last, so that the volume does not centre it.
    void startBeside(sound::Handle channel, const std::string& path);

    /// The same for a channel that something else will start.
    void setUp(sound::Handle channel);

    /// The same for a CD track.
    void startDiscBeside(sound::Handle channel);

    /// For a stream that is being opened: all is set before anything of it sounds. Its own channel
    /// is the active one already. Raises like `Volume::readMode`.
    void startStream(sound::Handle channel);

    /// Reads where the volume goes. Raises like `Volume::readMode`.
    void readVolumeMode() { volume_.readMode(); }

private:
    enum class Act : std::uint8_t { readMode, equalizer, balance, volume, playModule, playStream };

    /// The two ways of one start.
    struct Ways {
        std::span<const Act> wma;
        std::span<const Act> others;
    };

    void start(sound::Handle channel, const std::string& path, const Ways& ways);
    void run(sound::Handle channel, std::span<const Act> acts);
    void openForNothing(const std::string& path);

    const Core& core_;
    Volume& volume_;
    Balance& balance_;
    StartEqualizer& equalizer_;
    const PlayerHandle& window_;
};

} // namespace tovik::player
