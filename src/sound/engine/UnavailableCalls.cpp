// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/UnavailableCalls.h"

namespace tovik::sound {

bool UnavailableCalls::BASS_SONIQUEVIS_CreateFakeSoniqueWnd() {
    noteUnavailable();
    return false;
}

Handle UnavailableCalls::BASS_SONIQUEVIS_CreateVis(std::string_view, std::string_view,
                                                   std::uint32_t, int, int) {
    noteUnavailable();
    return kNoHandle;
}

std::string UnavailableCalls::BASS_SONIQUEVIS_GetName(Handle) {
    noteUnavailable();
    return {};
}

bool UnavailableCalls::BASS_SONIQUEVIS_Render(Handle, Handle, const VisualSurface&) {
    noteUnavailable();
    return false;
}

bool UnavailableCalls::BASS_SONIQUEVIS_Clicked(Handle, int, int) {
    noteUnavailable();
    return false;
}

bool UnavailableCalls::BASS_SONIQUEVIS_Resize(Handle, int, int) {
    noteUnavailable();
    return false;
}

bool UnavailableCalls::BASS_SONIQUEVIS_Free(Handle) {
    noteUnavailable();
    return false;
}

} // namespace tovik::sound
