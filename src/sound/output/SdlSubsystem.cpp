// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SdlSubsystem.h"

#include "sound/output/AlsaMessages.h"
#include "sound/output/SdlLibrary.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::sound {

namespace {

struct Hint {
    const char* name;
    const char* value;
};

constexpr std::array kHints = {
    // Without it SDL swallows SIGINT and SIGTERM.
    Hint{SDL_HINT_NO_SIGNAL_HANDLERS, "1"},
    // What mixers of the desktop show; the role reaches PipeWire alone.
    Hint{SDL_HINT_APP_NAME, "Tovik"},
    Hint{SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tovik"},
    Hint{SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Tovik"},
    Hint{SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "music"},
};

constexpr std::array<std::string_view, 2> kPretenders = {"dummy", "disk"};

} // namespace

std::unique_ptr<SdlSubsystem> SdlSubsystem::start(const std::string& driver,
                                                  SdlListener* listener) {
    if (SdlLibrary::load() == nullptr) {
        return nullptr;
    }
    for (const Hint& hint : kHints) {
        SdlLibrary::get().setHint(hint.name, hint.value);
    }
    silenceAlsaMessages();
    SdlLibrary::get().setMainReady();
    SdlLibrary::get().setHint(SDL_HINT_AUDIODRIVER, driver.empty() ? nullptr : driver.c_str());
    const int failed = SdlLibrary::get().initSubSystem(SDL_INIT_AUDIO);
    SdlLibrary::get().setHint(SDL_HINT_AUDIODRIVER, nullptr);
    if (failed != 0) {
        return nullptr;
    }
    // From here on the destructor takes the subsystem down.
    std::unique_ptr<SdlSubsystem> subsystem(new SdlSubsystem(listener));
    if (std::ranges::count(kPretenders, SdlSubsystem::driver()) != 0) {
        return nullptr;
    }
    return subsystem;
}

SdlSubsystem::SdlSubsystem(SdlListener* listener) : listener_(listener) {
    // Only now: the devices found at the start would be news otherwise. And anew at each start:
    // with its last user SDL forgets who watches.
    if (listener_ != nullptr) {
        SdlLibrary::get().addEventWatch(&SdlSubsystem::watch, listener_);
    }
}

SdlSubsystem::~SdlSubsystem() {
    if (listener_ != nullptr) {
        SdlLibrary::get().delEventWatch(&SdlSubsystem::watch, listener_);
    }
    SdlLibrary::get().quitSubSystem(SDL_INIT_AUDIO);
}

std::string SdlSubsystem::driver() {
    const char* const name = SdlLibrary::get().getCurrentAudioDriver();
    return name == nullptr ? std::string() : name;
}

std::vector<std::string> SdlSubsystem::deviceNames() {
    std::vector<std::string> names;
    const int count = SdlLibrary::get().getNumAudioDevices(0);
    for (int i = 0; i < count; ++i) {
        const char* const name = SdlLibrary::get().getAudioDeviceName(i, 0);
        if (name != nullptr) {
            names.emplace_back(name);
        }
    }
    return names;
}

int SdlSubsystem::watch(void* listener, SDL_Event* event) {
    const bool output = event->adevice.iscapture == 0;
    if (event->type == SDL_AUDIODEVICEREMOVED && output) {
        static_cast<SdlListener*>(listener)->deviceRemoved(event->adevice.which);
    } else if (event->type == SDL_AUDIODEVICEADDED && output) {
        static_cast<SdlListener*>(listener)->deviceAdded();
    }
    return 0;
}

} // namespace tovik::sound
