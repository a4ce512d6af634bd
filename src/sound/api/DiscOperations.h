// SPDX-License-Identifier: GPL-3.0-or-later
// Audio CDs: drives are counted from 0, tracks from 0. Interface thread only. What is told of
// drives and discs is what was found when they were last looked at, see `lookAtDrives`. No
// operation waits for a drive, but for the letter of a drive, or for a stream, where nobody has
// looked yet: that is done then, and waited for as the opening of a file is.
#pragma once

#include "sound/api/DiscToc.h"
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

/// What BASS_CD_GetID is asked for: the CD-Text.
inline constexpr std::uint32_t BASS_CDID_TEXT = 4;

/// Actions of BASS_CD_Door.
inline constexpr std::uint32_t BASS_CD_DOOR_CLOSE = 0;
inline constexpr std::uint32_t BASS_CD_DOOR_OPEN = 1;
inline constexpr std::uint32_t BASS_CD_DOOR_LOCK = 2;
inline constexpr std::uint32_t BASS_CD_DOOR_UNLOCK = 3;

class DiscOperations {
public:
    virtual ~DiscOperations() = default;

    // Looking -------------------------------------------------------------------------------------

    /// Begins to look which drives there are and which discs are in them, each drive on a thread of
    /// its own, and returns at once.
    virtual void lookAtDrives() = 0;

    /// Whether a look that was begun has not come to its end: a disc that spins up takes seconds, a
    /// broken drive for ever.
    [[nodiscard]] virtual bool lookingAtDrives() = 0;

    /// While it is on, the drive looks by itself every 2 s whether its disc is another one.
    virtual void watchDrive(std::uint32_t drive, bool on) = 0;

    /// Another number whenever a look has found another disc in the drive, or none any more.
    [[nodiscard]] virtual std::uint32_t discNumber(std::uint32_t drive) = 0;

    /// Of the disc in a drive; nothing without one.
    [[nodiscard]] virtual std::optional<DiscToc> discToc(std::uint32_t drive) = 0;

    /// How the reading of a track goes; nothing when `stream` is no living stream of a disc.
    [[nodiscard]] virtual std::optional<DiscReport> discReport(Handle stream) = 0;

    // Drives and discs ----------------------------------------------------------------------------

    /// Nothing past the last drive.
    [[nodiscard]] virtual std::optional<std::string>
    BASS_CD_GetDriveDescription(std::uint32_t drive) = 0;

    /// 0 is "A"; -1 on failure.
    [[nodiscard]] virtual int BASS_CD_GetDriveLetter(std::uint32_t drive) = 0;
    virtual bool BASS_CD_GetInfo(std::uint32_t drive, BASS_CD_INFO& info) = 0;
    [[nodiscard]] virtual bool BASS_CD_IsReady(std::uint32_t drive) = 0;

    /// -1 on failure.
    [[nodiscard]] virtual int BASS_CD_GetTracks(std::uint32_t drive) = 0;

    /// In bytes, 0 for a track with data; -1 on failure.
    [[nodiscard]] virtual std::int64_t BASS_CD_GetTrackLength(std::uint32_t drive,
                                                              std::uint32_t track) = 0;

    /// For BASS_CDID_TEXT, the CD-Text: NUL-terminated "key=value" strings in UTF-8, such as
    /// "TITLE1=Song" (0: the whole disc, else the track from 1), ended by an empty one. Nothing
    /// where the disc has none.
    [[nodiscard]] virtual std::optional<std::string> BASS_CD_GetID(std::uint32_t drive,
                                                                   std::uint32_t id) = 0;

    /// Has the drive close, open, lock or unlock its door, as far as it can. True when there is
    /// such a drive and action: what comes of it is not waited for.
    virtual bool BASS_CD_Door(std::uint32_t drive, std::uint32_t action) = 0;

    /// A stream of an audio track, 44100 Hz stereo. 0 without such a track (cannotOpenFile), and
    /// for one with data (unsupportedFormat). One that is to be heard may be told to play at once
    /// and is stalled until the drive has given something; what it cannot read is silence, a disc
    /// that is taken out ends it. `discReport` tells of both.
    ///
    /// With BASS_STREAM_DECODE the track is read with verification (each part several times until
    /// the readings agree) ahead of who takes it, on a thread of its own: BASS_ChannelGetData gives
    /// what is there by then, waiting 20 ms at most, so 0 bytes are not the end.
    /// BASS_ChannelIsActive tells the end. It cannot be sought in.
    [[nodiscard]] virtual Handle BASS_CD_StreamCreate(std::uint32_t drive, std::uint32_t track,
                                                      std::uint32_t flags) = 0;
};

} // namespace tovik::sound
