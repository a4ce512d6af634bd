// SPDX-License-Identifier: GPL-3.0-or-later
// The operations on audio CDs: drives, discs, streams of tracks. Interface thread only.
#pragma once

#include "sound/api/DiscOperations.h"
#include "sound/engine/EngineCore.h"

#include <memory>

namespace tovik::sound {

class DiscCalls : public virtual DiscOperations {
public:
    explicit DiscCalls(EngineCore& core) : core_(core) {}

    void lookAtDrives() override;
    bool lookingAtDrives() override;
    void watchDrive(std::uint32_t drive, bool on) override;
    std::uint32_t discNumber(std::uint32_t drive) override;
    std::optional<DiscToc> discToc(std::uint32_t drive) override;
    std::optional<DiscReport> discReport(Handle stream) override;

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

private:
    /// Looks for drives where nobody has done so yet. The first time the answer is waited for as
    /// that of a file is, whoever began the look.
    void lookOnce();

    /// Null, with the reason noted, when there is no such drive.
    [[nodiscard]] std::shared_ptr<DriveWork> driveOf(std::uint32_t drive);

    /// Of the disc in a drive; nothing, with the reason noted, without one.
    [[nodiscard]] std::optional<DiscToc> tocOf(std::uint32_t drive);

    [[nodiscard]] Handle createRip(const std::shared_ptr<DriveWork>& drive, const DiscPlace& place,
                                   std::uint32_t flags);
    [[nodiscard]] Handle createHeard(const std::shared_ptr<DriveWork>& drive, std::uint32_t track,
                                     const std::optional<DiscPlace>& place, std::uint32_t flags);

    EngineCore& core_;
    bool waited_ = false; ///< for the first look
};

} // namespace tovik::sound
