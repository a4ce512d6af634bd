// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackStarter.h"

#include "player/SoundDevice.h"
#include "player/TrackOpener.h"

#include <array>

namespace tovik::player {

void TrackStarter::resetDevice() {
    if (!core_.state.RipRunning) { // which would end with the library
        core_.sound.BASS_Free();
    }
    static_cast<void>(openSoundDevice(core_.sound, window_.handle()));
    TrackOpener opener(core_.sound);
    opener.free(core_.state.PrimaryChannel);
    opener.free(core_.state.SecondaryChannel);
}

void TrackStarter::startPlainly(sound::Handle channel, const std::string& path) {
    static constexpr std::array kWma = {Act::equalizer, Act::balance, Act::readMode, Act::volume,
                                        Act::playStream};
    static constexpr std::array kOthers = {Act::equalizer,  Act::balance,    Act::readMode,
                                           Act::volume,     Act::playModule, Act::volume,
                                           Act::playStream, Act::volume};
    start(channel, path, {.wma = kWma, .others = kOthers});
}

void TrackStarter::startBeside(sound::Handle channel, const std::string& path) {
    static constexpr std::array kWma = {Act::equalizer, Act::volume, Act::balance, Act::playStream};
    static constexpr std::array kOthers = {Act::equalizer, Act::volume, Act::balance,
                                           Act::playModule, Act::playStream};
    start(channel, path, {.wma = kWma, .others = kOthers});
}

void TrackStarter::setUp(sound::Handle channel) {
    static constexpr std::array kSilently = {Act::equalizer, Act::volume, Act::balance};
    run(channel, kSilently);
}

void TrackStarter::startDiscBeside(sound::Handle channel) {
    equalizer_.Set_EQ();
    volume_.apply();
    balance_.ApplyBalance(core_.state.BalanceValue);
    core_.sound.BASS_StreamPlay(channel, true, 0);
}

void TrackStarter::startStream(sound::Handle channel) {
    static constexpr std::array kStream = {Act::equalizer, Act::readMode, Act::volume, Act::balance,
                                           Act::playStream};
    run(channel, kStream);
    core_.state.IsWmaStream = false;
}

void TrackStarter::start(sound::Handle channel, const std::string& path, const Ways& ways) {
    if (core_.sound.BASS_WMA_GetIWMReader(channel) > 0) {
        openForNothing(path);
        run(channel, ways.wma);
        core_.state.IsWmaStream = true;
    } else {
        core_.state.IsWmaStream = false;
        run(channel, ways.others);
    }
}

void TrackStarter::openForNothing(const std::string& path) {
    // A file of this kind is opened once more and nothing is done with it. It is freed at once:
    // crossfades never reset the device, and there such streams would pile up.
    core_.sound.BASS_StreamFree(
        core_.sound.BASS_WMA_StreamCreateFile(false, path, 0, 0, sound::BASS_SAMPLE_FX));
}

void TrackStarter::run(sound::Handle channel, std::span<const Act> acts) {
    for (const Act act : acts) {
        switch (act) {
        case Act::readMode:
            volume_.readMode();
            break;
        case Act::equalizer:
            equalizer_.Set_EQ();
            break;
        case Act::balance:
            balance_.ApplyBalance(core_.state.BalanceValue);
            break;
        case Act::volume:
            volume_.apply();
            break;
        case Act::playModule:
            // One of the two play calls is meant for the handle; the other fails without effect.
            core_.sound.BASS_MusicPlay(channel);
            break;
        case Act::playStream:
            core_.sound.BASS_StreamPlay(channel, false, 0);
            break;
        }
    }
}

} // namespace tovik::player
