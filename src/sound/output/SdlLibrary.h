// SPDX-License-Identifier: GPL-3.0-or-later
// SDL's routines, found when they are first needed: with the libraries that SDL brings, linking it
// would cost every start some milliseconds. Any thread.
#pragma once

#include <SDL.h>

namespace tovik::sound {

struct SdlLibrary {
    decltype(&::SDL_SetHint) setHint = nullptr;
    decltype(&::SDL_SetMainReady) setMainReady = nullptr;
    decltype(&::SDL_InitSubSystem) initSubSystem = nullptr;
    decltype(&::SDL_QuitSubSystem) quitSubSystem = nullptr;
    decltype(&::SDL_AddEventWatch) addEventWatch = nullptr;
    decltype(&::SDL_DelEventWatch) delEventWatch = nullptr;
    decltype(&::SDL_GetCurrentAudioDriver) getCurrentAudioDriver = nullptr;
    decltype(&::SDL_GetNumAudioDevices) getNumAudioDevices = nullptr;
    decltype(&::SDL_GetAudioDeviceName) getAudioDeviceName = nullptr;
    decltype(&::SDL_OpenAudioDevice) openAudioDevice = nullptr;
    decltype(&::SDL_CloseAudioDevice) closeAudioDevice = nullptr;
    decltype(&::SDL_PauseAudioDevice) pauseAudioDevice = nullptr;
    decltype(&::SDL_GetAudioDeviceStatus) getAudioDeviceStatus = nullptr;
    decltype(&::SDL_TLSCleanup) tlsCleanup = nullptr;

    /// Loads the library; null when this machine does not have it. It stays loaded.
    [[nodiscard]] static const SdlLibrary* load();

    /// What `load` found. Only after it did.
    [[nodiscard]] static const SdlLibrary& get() { return *load(); }
};

} // namespace tovik::sound
