// SPDX-License-Identifier: GPL-3.0-or-later
// Audio CDs: drives are counted from 0, tracks from 0. Interface thread only.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tovik::sound {

/// What a drive can do; `size` must hold 24 when the record is handed in.
struct BASS_CD_INFO {
    std::uint32_t size = 24;
    std::uint32_t rwflags = 0;
    bool canopen = false;
    bool canlock = false;
    std::uint32_t maxspeed = 0;
    std::uint32_t cache = 0;
};

class DiscOperations {
public:
    virtual ~DiscOperations() = default;

    /// Nothing past the last drive.
    [[nodiscard]] virtual std::optional<std::string>
    BASS_CD_GetDriveDescription(std::uint32_t drive) = 0;

    /// 0 is "A"; -1 on failure.
    [[nodiscard]] virtual int BASS_CD_GetDriveLetter(std::uint32_t drive) = 0;
    virtual bool BASS_CD_GetInfo(std::uint32_t drive, BASS_CD_INFO& info) = 0;
    [[nodiscard]] virtual bool BASS_CD_IsReady(std::uint32_t drive) = 0;

    /// -1 on failure.
    [[nodiscard]] virtual int BASS_CD_GetTracks(std::uint32_t drive) = 0;

    /// In bytes; -1 on failure.
    [[nodiscard]] virtual std::int64_t BASS_CD_GetTrackLength(std::uint32_t drive,
                                                              std::uint32_t track) = 0;

    /// For id 4, the CD-Text: NUL-terminated "key=value" strings, ended by an empty one.
    [[nodiscard]] virtual std::optional<std::string> BASS_CD_GetID(std::uint32_t drive,
                                                                   std::uint32_t id) = 0;

    /// Action 0 closes the door, 1 opens, 2 locks, 3 unlocks.
    virtual bool BASS_CD_Door(std::uint32_t drive, std::uint32_t action) = 0;

    [[nodiscard]] virtual Handle BASS_CD_StreamCreate(std::uint32_t drive, std::uint32_t track,
                                                      std::uint32_t flags) = 0;
};

} // namespace tovik::sound
