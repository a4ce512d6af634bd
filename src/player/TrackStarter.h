// SPDX-License-Identifier: GPL-3.0-or-later
// Makes an opened channel sound: equalizer, balance, volume and the play calls, in the order of
// each way to start. Plain starts and crossfades share it. Interface thread.
#pragma once

#include "player/Balance.h"
#include "player/PlayerState.h"
#include "player/StartEqualizer.h"
#include "player/Volume.h"
#include "sound/SoundLibrary.h"

#include <cstdint>
#include <span>
#include <string>

namespace tovik::player {

class TrackStarter {
public:
    /// All of them outlive the object.
    TrackStarter(PlayerState& state, sound::SoundLibrary& sound, Volume& volume, Balance& balance,
                 StartEqualizer& equalizer)
        : state_(state), sound_(sound), volume_(volume), balance_(balance), equalizer_(equalizer) {}

    /// For a device that was just reset: also reads where the volume goes.
    void startPlainly(sound::Handle channel, const std::string& path);

    /// Beside another channel that goes on; its own channel is the active one already. The balance
    /// is set last, so that the volume does not centre it.
    void startBeside(sound::Handle channel, const std::string& path);

    /// The same for a CD track.
    void startDiscBeside(sound::Handle channel);

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

    PlayerState& state_;
    sound::SoundLibrary& sound_;
    Volume& volume_;
    Balance& balance_;
    StartEqualizer& equalizer_;
};

} // namespace tovik::player
