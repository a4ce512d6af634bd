// SPDX-License-Identifier: GPL-3.0-or-later
// What the station player makes of how its stream stands.
#include "radio/StationPlayer.h"

#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "config/SettingText.h"
#include "player/LiveSetting.h"
#include "radio/StreamTitle.h"

namespace tovik::radio {

namespace {

using sound::StreamReport;
using sound::StreamStage;
using sound::StreamTrouble;

/// A paused stream whose buffer took nothing in for as many looks is full. Some servers send in
/// portions of several seconds.
constexpr int kLooksWhileFull = 40;

constexpr int kAtOnceMs = 1;

} // namespace

void StationPlayer::look() {
    const auto report = core_.sound.streamReport(core_.state.PrimaryChannel);
    lookAtSaving();
    if (core_.state.IsPaused) {
        if (report && report->live && !closed_) {
            lookAtPaused(*report);
        }
        return;
    }
    if (!report) {
        StreamReport none;
        none.stage = StreamStage::failed;
        none.trouble = StreamTrouble::notAvailable;
        over(none);
        return;
    }
    if (!headersRead_ && report->stage != StreamStage::connecting) {
        headersRead_ = true;
        readHeaders();
    }
    if (sound::isFinal(report->stage)) {
        over(*report);
        return;
    }
    showReport(*report);
}

/// The buffer fills, then nothing is asked of the server any more.
void StationPlayer::lookAtPaused(const StreamReport& report) {
    looking_->setInterval(kPlayingMs);
    looksWhileFull_ = report.bytes == pausedBytes_ ? looksWhileFull_ + 1 : 0;
    pausedBytes_ = report.bytes;
    if (looksWhileFull_ >= kLooksWhileFull || sound::isFinal(report.stage)) {
        noteHeard();
        core_.sound.BASS_StreamFree(core_.state.PrimaryChannel);
        closed_ = true;
    }
}

void StationPlayer::readHeaders() {
    const auto headers =
        core_.sound.BASS_StreamGetTags(core_.state.PrimaryChannel, sound::BASS_TAG_ICY);
    if (!headers) {
        return;
    }
    if (const auto name = stationName(*headers)) {
        screen.setName(*name);
    }
}

void StationPlayer::showReport(const StreamReport& report) {
    const bool sounds = report.stage == StreamStage::playing;
    const int interval = sounds ? kPlayingMs : kOpeningMs;
    if (looking_->interval() != interval) {
        looking_->setInterval(interval);
    }
    if (sounds) {
        sounded_ = true;
        reopening_.recovered();
        screen.setStatus(StationStatus::sounds);
    } else if (report.stage == StreamStage::buffering) {
        screen.setStatus(StationStatus::buffering, report.percent);
    }
    screen.setFormat(report.kbps, report.rate,
                     sounds ? player::CBASS_TIME::modeOf(report.channels) : std::string());
    showTitle(report.heardMetadata);
    if (sounds) {
        announce();
    }
}

void StationPlayer::showTitle(const std::string& metadata) {
    if (metadata.empty() || metadata == metadata_) {
        return;
    }
    metadata_ = metadata;
    const bool whole = core_.state.comfort.readsTitlesWhole;
    if (const auto title = shownTitle(metadata, whole)) {
        screen.setTitle(*title);
    } else if (streamTitle(metadata, whole).answer == TitleAnswer::broken && !brokenTold_) {
        brokenTold_ = true;
        static_cast<void>(
            core_.errors.log(base::RuntimeError(base::ErrorNumber::InvalidProcedureCall),
                             config::procedureOf("AddStation", "DoMeta")));
    }
}

/// Popup and messengers are told of each song, and of a station that names none.
void StationPlayer::announce() {
    const std::string& title = screen.title();
    if (title == announced_) {
        return;
    }
    announced_ = title;
    if (player::readLive(core_.settings, "OSD", config::settingToFlag)) {
        core_.news.showTitlePopup(title);
    }
    player::TrackReport report;
    report.path = track_.path;
    report.listTitle = title;
    core_.news.reportTrack(report);
}

/// A file that cannot be made is told once, and a disk that is full, which ends the saving.
void StationPlayer::lookAtSaving() {
    const auto failure = saving_->takeFailure();
    if (!failure) {
        return;
    }
    if (failure->ends) {
        core_.state.StreamRecording = false;
        core_.screen.showRecording();
    }
    if (failure->why == std::errc::not_supported) {
        static_cast<void>(core_.errors.log(
            base::withPlace(base::RuntimeError(base::ErrorNumber::InvalidProcedureCall),
                            track_.path),
            config::procedureOf("AddStation", "record")));
        return;
    }
    untold_ = failure;
    telling_->setInterval(kAtOnceMs);
    telling_->setEnabled(true);
}

void StationPlayer::tellFailures() {
    telling_->setEnabled(false);
    if (boxStands_) {
        return;
    }
    boxStands_ = true;
    while (const auto failure = std::exchange(untold_, std::nullopt)) {
        core_.errors.reportAndTell(
            base::withPlace(base::RuntimeError(base::errorNumberOf(failure->why)), failure->path),
            config::procedureOf("AddStation", "record"));
    }
    boxStands_ = false;
}

} // namespace tovik::radio
