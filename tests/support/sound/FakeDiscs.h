// SPDX-License-Identifier: GPL-3.0-or-later
// The drives of a sound library without drives: a test says which there are and what is in them.
// One thread.
#pragma once

#include "sound/api/DiscOperations.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tovik::test {

class FakeDiscs : public virtual sound::DiscOperations {
public:
    struct Drive {
        std::string description = "A drive";
        int letter = 3;                  ///< 0 is "A"
        bool ready = true;               ///< a disc is in it
        bool tracksFail = false;         ///< the number of tracks cannot be had
        sound::DiscToc toc{};            ///< see `discOf`
        std::optional<std::string> text{}; ///< CD-Text, with its NULs
        std::uint32_t number = 1;        ///< of the disc
        bool watched = false;
    };

    std::vector<Drive> drives;

    /// What was done with drives, in order, such as "BASS_CD_Door(0, 2)" and "lookAtDrives()".
    std::vector<std::string> driveCalls;

    /// How many times `lookingAtDrives` says yes after a look was begun.
    int looksNeeded = 0;

    std::map<sound::Handle, sound::DiscReport> discReports;

    /// The contents of an audio disc with tracks of so many seconds; 0 seconds: a data track of
    /// one minute.
    [[nodiscard]] static sound::DiscToc discOf(const std::vector<std::int32_t>& seconds);

    void lookAtDrives() override;
    bool lookingAtDrives() override;
    void watchDrive(std::uint32_t drive, bool on) override;
    std::uint32_t discNumber(std::uint32_t drive) override;
    std::optional<sound::DiscToc> discToc(std::uint32_t drive) override;
    std::optional<sound::DiscReport> discReport(sound::Handle stream) override;
    std::optional<std::string> BASS_CD_GetDriveDescription(std::uint32_t drive) override;
    int BASS_CD_GetDriveLetter(std::uint32_t drive) override;
    bool BASS_CD_GetInfo(std::uint32_t drive, sound::BASS_CD_INFO& info) override;
    bool BASS_CD_IsReady(std::uint32_t drive) override;
    int BASS_CD_GetTracks(std::uint32_t drive) override;
    std::int64_t BASS_CD_GetTrackLength(std::uint32_t drive, std::uint32_t track) override;
    std::optional<std::string> BASS_CD_GetID(std::uint32_t drive, std::uint32_t id) override;
    bool BASS_CD_Door(std::uint32_t drive, std::uint32_t action) override;

private:
    [[nodiscard]] Drive* findDrive(std::uint32_t drive);
    [[nodiscard]] Drive* readyDrive(std::uint32_t drive);

    int looksLeft_ = 0;
};

} // namespace tovik::test
