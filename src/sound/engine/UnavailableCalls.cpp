// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/UnavailableCalls.h"

namespace tovik::sound {

std::optional<std::string> UnavailableCalls::BASS_CD_GetDriveDescription(std::uint32_t) {
    noteUnavailable();
    return std::nullopt;
}

int UnavailableCalls::BASS_CD_GetDriveLetter(std::uint32_t) {
    noteUnavailable();
    return -1;
}

bool UnavailableCalls::BASS_CD_GetInfo(std::uint32_t, BASS_CD_INFO&) {
    noteUnavailable();
    return false;
}

bool UnavailableCalls::BASS_CD_IsReady(std::uint32_t) {
    noteUnavailable();
    return false;
}

int UnavailableCalls::BASS_CD_GetTracks(std::uint32_t) {
    noteUnavailable();
    return -1;
}

std::int64_t UnavailableCalls::BASS_CD_GetTrackLength(std::uint32_t, std::uint32_t) {
    noteUnavailable();
    return -1;
}

std::optional<std::string> UnavailableCalls::BASS_CD_GetID(std::uint32_t, std::uint32_t) {
    noteUnavailable();
    return std::nullopt;
}

bool UnavailableCalls::BASS_CD_Door(std::uint32_t, std::uint32_t) {
    noteUnavailable();
    return false;
}

Handle UnavailableCalls::BASS_CD_StreamCreate(std::uint32_t, std::uint32_t, std::uint32_t) {
    noteUnavailable();
    return kNoHandle;
}

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
