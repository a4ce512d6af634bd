// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/FakeDiscs.h"

namespace tovik::test {

using sound::kSectorsPerSecond;

sound::DiscToc FakeDiscs::discOf(const std::vector<std::int32_t>& seconds) {
    constexpr std::int32_t kDataSeconds = 60;
    sound::DiscToc toc;
    for (const std::int32_t length : seconds) {
        const bool data = length == 0;
        const std::int32_t sectors = (data ? kDataSeconds : length) * kSectorsPerSecond;
        toc.tracks.push_back({.firstSector = toc.leadOut, .sectors = sectors, .isData = data});
        toc.leadOut += sectors;
    }
    return toc;
}

FakeDiscs::Drive* FakeDiscs::findDrive(std::uint32_t drive) {
    return drive < drives.size() ? &drives[drive] : nullptr;
}

FakeDiscs::Drive* FakeDiscs::readyDrive(std::uint32_t drive) {
    Drive* const found = findDrive(drive);
    return found != nullptr && found->ready ? found : nullptr;
}

void FakeDiscs::lookAtDrives() {
    driveCalls.emplace_back("lookAtDrives()");
    looksLeft_ = looksNeeded;
}

bool FakeDiscs::lookingAtDrives() {
    return looksLeft_ > 0 && looksLeft_-- > 0;
}

void FakeDiscs::watchDrive(std::uint32_t drive, bool on) {
    if (Drive* const found = findDrive(drive); found != nullptr) {
        found->watched = on;
    }
}

std::uint32_t FakeDiscs::discNumber(std::uint32_t drive) {
    const Drive* const found = findDrive(drive);
    return found != nullptr ? found->number : 0;
}

std::optional<sound::DiscToc> FakeDiscs::discToc(std::uint32_t drive) {
    const Drive* const found = readyDrive(drive);
    return found != nullptr ? std::optional(found->toc) : std::nullopt;
}

std::optional<sound::DiscReport> FakeDiscs::discReport(sound::Handle stream) {
    const auto found = discReports.find(stream);
    return found != discReports.end() ? std::optional(found->second) : std::nullopt;
}

std::optional<std::string> FakeDiscs::BASS_CD_GetDriveDescription(std::uint32_t drive) {
    const Drive* const found = findDrive(drive);
    return found != nullptr ? std::optional(found->description) : std::nullopt;
}

int FakeDiscs::BASS_CD_GetDriveLetter(std::uint32_t drive) {
    const Drive* const found = findDrive(drive);
    return found != nullptr ? found->letter : -1;
}

bool FakeDiscs::BASS_CD_GetInfo(std::uint32_t drive, sound::BASS_CD_INFO& info) {
    driveCalls.push_back("BASS_CD_GetInfo(" + std::to_string(drive) + ")");
    return info.size == sizeof(std::uint32_t) * 6 && findDrive(drive) != nullptr;
}

bool FakeDiscs::BASS_CD_IsReady(std::uint32_t drive) {
    return readyDrive(drive) != nullptr;
}

int FakeDiscs::BASS_CD_GetTracks(std::uint32_t drive) {
    const Drive* const found = readyDrive(drive);
    return found == nullptr || found->tracksFail ? -1 : static_cast<int>(found->toc.tracks.size());
}

std::int64_t FakeDiscs::BASS_CD_GetTrackLength(std::uint32_t drive, std::uint32_t track) {
    const Drive* const found = readyDrive(drive);
    if (found == nullptr || track >= found->toc.tracks.size()) {
        return -1;
    }
    const sound::DiscTrack& asked = found->toc.tracks[track];
    return asked.isData
               ? 0
               : std::int64_t{asked.sectors} * static_cast<std::int64_t>(sound::kSectorBytes);
}

std::optional<std::string> FakeDiscs::BASS_CD_GetID(std::uint32_t drive, std::uint32_t id) {
    const Drive* const found = readyDrive(drive);
    return found != nullptr && id == sound::BASS_CDID_TEXT ? found->text : std::nullopt;
}

bool FakeDiscs::BASS_CD_Door(std::uint32_t drive, std::uint32_t action) {
    driveCalls.push_back("BASS_CD_Door(" + std::to_string(drive) + ", " + std::to_string(action) +
                         ")");
    return findDrive(drive) != nullptr;
}

} // namespace tovik::test
