// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/CdDrives.h"

#include "cd/RipDrive.h"
#include "config/Errors.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace tovik::cd {

namespace {

using Clock = std::chrono::steady_clock;

/// A disc that spins up takes some seconds; what takes longer is not waited for.
constexpr std::chrono::seconds kPatience(20);

/// What is done by then needs no step, and nothing changes under who waits.
constexpr std::chrono::milliseconds kMoment(33);
constexpr std::chrono::milliseconds kBetweenLooks(1);

constexpr std::int32_t kLookMs = 50;
constexpr std::int32_t kMostRounds = std::chrono::milliseconds(kPatience).count() / kLookMs;
constexpr std::int32_t kWatchMs = 500;

constexpr char kFirstLetter = 'A';

} // namespace

CdDrives::CdDrives(const Needs& needs)
    : tracks(needs.tracks), needs_(needs), sound_(needs.tracks.core.sound),
      state_(needs.tracks.state),
      lookTimer_(needs.tracks.core.timers.makeTimer([this] { look(); })),
      watchTimer_(needs.tracks.core.timers.makeTimer([this] { followDisc(); })) {
    lookTimer_->setInterval(kLookMs);
    watchTimer_->setInterval(kWatchMs);
}

bool CdDrives::rips() const {
    return needs_.tracks.core.state.RipRunning || needs_.tracks.core.state.RippingNow;
}

/// False when the program ends meanwhile, or somebody waits already.
bool CdDrives::lookAndWait() {
    if (waiting_) {
        return false;
    }
    waiting_ = true;
    sound_.lookAtDrives();
    const auto begun = Clock::now();
    bool goesOn = true;
    while (goesOn && sound_.lookingAtDrives() && Clock::now() - begun < kPatience) {
        std::this_thread::sleep_for(kBetweenLooks);
        goesOn = Clock::now() - begun < kMoment || needs_.pump.Step();
    }
    waiting_ = false;
    return goesOn;
}

void CdDrives::fill() {
    std::vector<DriveBox::Entry> entries;
    std::string letters;
    for (std::uint32_t drive = 0;; ++drive) {
        const auto description = sound_.BASS_CD_GetDriveDescription(drive);
        if (!description) {
            break;
        }
        const int number = sound_.BASS_CD_GetDriveLetter(drive);
        if (number < 0) {
            continue;
        }
        const std::string letter(1, static_cast<char>(kFirstLetter + number));
        entries.push_back(
            {.text = letter + ": " + *description, .ItemData = static_cast<std::int32_t>(drive)});
        letters += (letters.empty() ? "" : "|") + letter;
    }
    state_.CDDriveLast = static_cast<std::int32_t>(entries.size()) - 1;
    cmbCDDrives.entries = std::move(entries);
    cmbCDDrives.ListIndex = -1;
    if (cmbCDDrives.changed) {
        cmbCDDrives.changed();
    }
    if (hooks.showDrives) {
        hooks.showDrives(letters);
    }
}

void CdDrives::Init_CD_Ripper() {
    if (!lookAndWait()) {
        return;
    }
    if (needs_.tracks.core.state.comfort.encodesSelectedDrive) {
        refill();
        return;
    }
    fill();
    select(kRipDrive);
}

void CdDrives::beginInit() {
    if (!rips()) {
        sound_.lookAtDrives();
        rounds_ = 0;
        lookTimer_->setEnabled(true);
    }
}

void CdDrives::look() {
    if (waiting_ || (++rounds_ < kMostRounds && sound_.lookingAtDrives())) {
        return;
    }
    lookTimer_->setEnabled(false); // a drive that never answers does not keep the others out
    if (rips()) {
        return;
    }
    refill();
}

/// Whatever was selected is selected again where it still is there.
void CdDrives::refill() {
    const auto& entries = cmbCDDrives.entries;
    const std::int32_t before = cmbCDDrives.ListIndex;
    const auto chosen =
        before >= 0 ? entries[static_cast<std::size_t>(before)].text : std::string();
    fill();
    const auto found = std::ranges::find(entries, chosen, &DriveBox::Entry::text);
    select(found == entries.end() ? 0 : static_cast<std::int32_t>(found - entries.begin()));
}

/// Selects an entry as the user would; nothing where there is none.
void CdDrives::select(std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= cmbCDDrives.entries.size()) {
        tracks.clear();
        return;
    }
    cmbCDDrives_Click(index);
    if (cmbCDDrives.changed) {
        cmbCDDrives.changed();
    }
}

void CdDrives::choose(std::int32_t index) {
    if (!rips()) {
        cmbCDDrives_Click(index);
    } else if (cmbCDDrives.changed) {
        cmbCDDrives.changed();
    }
}

void CdDrives::cmbCDDrives_Click(std::int32_t index) {
    config::guard(needs_.tracks.core.errors, config::player("cmbCDdrives"), [&] {
        if (index < 0 || static_cast<std::size_t>(index) >= cmbCDDrives.entries.size()) {
            return;
        }
        const bool watched = watchTimer_->enabled();
        watch(false); // it may be another drive
        cmbCDDrives.ListIndex = index;
        state_.CDDrive = cmbCDDrives.entries[static_cast<std::size_t>(index)].ItemData;
        watch(watched);
        LoadCDDrive();
        listedDisc_ = sound_.discNumber(static_cast<std::uint32_t>(state_.CDDrive));
        tracks.LoadTrackList(needs_.tracks.lstTracks, false);
    });
}

void CdDrives::LoadCDDrive() {
    sound::BASS_CD_INFO info;
    sound_.BASS_CD_GetInfo(static_cast<std::uint32_t>(state_.CDDrive), info);
}

void CdDrives::PlayAudioCD(std::int32_t index) {
    if (rips() || waiting_) {
        return;
    }
    if (hooks.clrIMG_Click) {
        hooks.clrIMG_Click();
    }
    if (!lookAndWait() || rips()) { // a rip may have begun meanwhile
        return;
    }
    fill();
    select(0);
    if (index < 0 || static_cast<std::size_t>(index) >= cmbCDDrives.entries.size()) {
        return;
    }
    select(index);
    LoadCDDrive();
    config::guard(needs_.tracks.core.errors, config::player("cmbCDdrives"),
                  [this] { tracks.LoadTrackList(needs_.tracks.core.lists.stdSS, true); });
}

void CdDrives::watch(bool on) {
    sound_.watchDrive(static_cast<std::uint32_t>(state_.CDDrive), on);
    watchTimer_->setEnabled(on);
}

void CdDrives::followDisc() {
    if (rips() || waiting_ || lookTimer_->enabled() || cmbCDDrives.ListIndex < 0 ||
        sound_.discNumber(static_cast<std::uint32_t>(state_.CDDrive)) == listedDisc_) {
        return;
    }
    cmbCDDrives_Click(cmbCDDrives.ListIndex);
}

bool PathExists(std::string_view path, std::string_view name) {
    if (name.empty() || name == "." || name == ".." || name.find('/') != std::string_view::npos) {
        return false;
    }
    std::error_code error;
    return std::filesystem::is_directory(std::filesystem::path(path) / name, error);
}

} // namespace tovik::cd
