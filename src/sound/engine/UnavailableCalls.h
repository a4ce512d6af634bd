// SPDX-License-Identifier: GPL-3.0-or-later
// The families that this engine does not offer: every operation fails with notAvailable.
// Interface thread only.
#pragma once

#include "sound/api/DiscOperations.h"
#include "sound/api/VisualOperations.h"
#include "sound/engine/EngineCore.h"

namespace tovik::sound {

class UnavailableCalls : public virtual DiscOperations,
                         public virtual VisualOperations {
public:
    explicit UnavailableCalls(EngineCore& core) : core_(core) {}

    void lookAtDrives() override { noteUnavailable(); }

    bool lookingAtDrives() override { return false; }

    void watchDrive(std::uint32_t, bool) override { noteUnavailable(); }

    std::uint32_t discNumber(std::uint32_t) override { return 0; }

    std::optional<DiscToc> discToc(std::uint32_t) override { return std::nullopt; }

    std::optional<DiscReport> discReport(Handle) override { return std::nullopt; }

    std::optional<std::string> BASS_CD_GetDriveDescription(std::uint32_t drive) override;
    int BASS_CD_GetDriveLetter(std::uint32_t drive) override;
    bool BASS_CD_GetInfo(std::uint32_t drive, BASS_CD_INFO& info) override;
    bool BASS_CD_IsReady(std::uint32_t drive) override;
    int BASS_CD_GetTracks(std::uint32_t drive) override;
    std::int64_t BASS_CD_GetTrackLength(std::uint32_t drive, std::uint32_t track) override;
    std::optional<std::string> BASS_CD_GetID(std::uint32_t drive, std::uint32_t id) override;
    bool BASS_CD_Door(std::uint32_t drive, std::uint32_t action) override;
    Handle BASS_CD_StreamCreate(std::uint32_t drive, std::uint32_t track,
                                std::uint32_t flags) override;

    bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() override;
    Handle BASS_SONIQUEVIS_CreateVis(std::string_view path, std::string_view iniPath,
                                     std::uint32_t flags, int width, int height) override;
    std::string BASS_SONIQUEVIS_GetName(Handle visual) override;
    bool BASS_SONIQUEVIS_Render(Handle visual, Handle channel,
                                const VisualSurface& surface) override;
    bool BASS_SONIQUEVIS_Clicked(Handle visual, int x, int y) override;
    bool BASS_SONIQUEVIS_Resize(Handle visual, int width, int height) override;
    bool BASS_SONIQUEVIS_Free(Handle visual) override;

private:
    void noteUnavailable() { core_.fail(ErrorCode::notAvailable); }

    EngineCore& core_;
};

} // namespace tovik::sound
