// SPDX-License-Identifier: GPL-3.0-or-later
// The audio part of SDL while it is started, and its news of devices. Started and ended on any
// thread, but by one at a time. SDL is used for audio alone.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

union SDL_Event;

namespace tovik::sound {

/// Hears of devices on threads of SDL.
class SdlListener {
public:
    virtual ~SdlListener() = default;

    /// The opened device with this number is gone.
    virtual void deviceRemoved(std::uint32_t device) = 0;

    /// An output device was connected.
    virtual void deviceAdded() = 0;
};

class SdlSubsystem {
public:
    /// Starts SDL's audio with the named driver ("pulseaudio", "alsa" ...), or with the first that
    /// works if the name is empty. Null when none does. A driver that only pretends to play
    /// ("dummy", "disk") does not count, however it was chosen. Devices that are there already are
    /// not reported to `listener` (which may be null).
    [[nodiscard]] static std::unique_ptr<SdlSubsystem> start(const std::string& driver,
                                                             SdlListener* listener);

    /// Devices must be closed by then.
    ~SdlSubsystem();

    SdlSubsystem(const SdlSubsystem&) = delete;
    SdlSubsystem& operator=(const SdlSubsystem&) = delete;

    [[nodiscard]] static std::string driver();

    /// The output devices by the names under which they can be opened.
    [[nodiscard]] static std::vector<std::string> deviceNames();

private:
    explicit SdlSubsystem(SdlListener* listener);

    static int watch(void* listener, SDL_Event* event);

    SdlListener* const listener_;
};

} // namespace tovik::sound
