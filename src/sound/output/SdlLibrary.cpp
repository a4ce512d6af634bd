// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SdlLibrary.h"

#include <dlfcn.h>

#include <optional>

namespace tovik::sound {

namespace {

constexpr const char* kFile = "libSDL2-2.0.so.0";

std::optional<SdlLibrary> findAll() {
    void* const file = ::dlopen(kFile, RTLD_NOW | RTLD_LOCAL);
    if (file == nullptr) {
        return std::nullopt;
    }
    SdlLibrary found;
    bool complete = true;
    const auto find = [&]<typename Routine>(Routine& routine, const char* name) {
        routine = reinterpret_cast<Routine>(::dlsym(file, name));
        complete = complete && routine != nullptr;
    };
    find(found.setHint, "SDL_SetHint");
    find(found.setMainReady, "SDL_SetMainReady");
    find(found.initSubSystem, "SDL_InitSubSystem");
    find(found.quitSubSystem, "SDL_QuitSubSystem");
    find(found.addEventWatch, "SDL_AddEventWatch");
    find(found.delEventWatch, "SDL_DelEventWatch");
    find(found.getCurrentAudioDriver, "SDL_GetCurrentAudioDriver");
    find(found.getNumAudioDevices, "SDL_GetNumAudioDevices");
    find(found.getAudioDeviceName, "SDL_GetAudioDeviceName");
    find(found.openAudioDevice, "SDL_OpenAudioDevice");
    find(found.closeAudioDevice, "SDL_CloseAudioDevice");
    find(found.pauseAudioDevice, "SDL_PauseAudioDevice");
    find(found.getAudioDeviceStatus, "SDL_GetAudioDeviceStatus");
    find(found.tlsCleanup, "SDL_TLSCleanup");
    return complete ? std::optional(found) : std::nullopt;
}

} // namespace

const SdlLibrary* SdlLibrary::load() {
    static const std::optional<SdlLibrary> library = findAll();
    return library ? &*library : nullptr;
}

} // namespace tovik::sound
