// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationPlayer.h"

#include "base/Text.h"
#include "player/TrackOpener.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tovik::radio {

namespace {

using sound::StreamReport;
using sound::StreamStage;
using sound::StreamTrouble;

/// What will not get better by itself: an address that never sounded is given up then. Of the
/// answers of a server those that blame the address.
bool isForGood(const StreamReport& report) {
    static constexpr std::array kForGood = {
        StreamTrouble::badAddress, StreamTrouble::nameNotFound, StreamTrouble::badCertificate,
        StreamTrouble::notAudio,   StreamTrouble::emptyList,    StreamTrouble::notAvailable};
    constexpr int kClientErrors = 400;
    constexpr int kServerErrors = 500;
    const bool blamesAddress = report.trouble == StreamTrouble::httpError &&
                               report.httpStatus >= kClientErrors &&
                               report.httpStatus < kServerErrors;
    return blamesAddress || std::ranges::find(kForGood, report.trouble) != kForGood.end();
}

} // namespace

StationPlayer::StationPlayer(const player::Core& core, player::Playback& playback,
                             const config::MultiLNG& language, playlist::stdSS& RadioLst,
                             std::string folder)
    : screen(core, language), core_(core), playback_(playback), RadioLst_(RadioLst),
      looking_(core.timers.makeTimer([this] {
          config::guard(core_.errors, config::procedureOf("AddStation", "Play"),
                        [this] { look(); });
      })),
      telling_(core.timers.makeTimer([this] { tellFailures(); })),
      reopening_(core.timers,
                 [this] {
                     config::guard(core_.errors, config::procedureOf("AddStation", "Play"), [this] {
                         if (!core_.state.IsPaused) {
                             open(lostStatus());
                         }
                     });
                 }),
      saving_(std::make_shared<modNetRadio>(std::move(folder))) {
    playback_.setAddresses(*this);
    core_.screen.add(*this);
    core_.news.add(*this);
}

StationPlayer::~StationPlayer() {
    core_.news.remove(*this);
    core_.screen.remove(*this);
}

void StationPlayer::playRow(playlist::Row row) {
    if (row > 0 && row <= RadioLst_.ListCount()) {
        start(player::trackOf(RadioLst_, row), From::stations);
    }
}

void StationPlayer::play(const player::TrackRef& track) {
    start(track, From::playlist);
}

void StationPlayer::start(const player::TrackRef& track, From from) {
    if (core_.state.ripHoldsSound()) {
        return; // a rip gives the library back, and with it what would sound
    }
    config::guard(core_.errors, config::procedureOf("AddStation", "Play"), [&] {
        starting_ = true;
        leave();
        playback_.transport.Stop_play();
        becomeSource(track, from);
        starting_ = false;
        open(StationStatus::connecting);
    });
    starting_ = false;
}

void StationPlayer::becomeSource(const player::TrackRef& track, From from) {
    player::PlayerState& state = core_.state;
    player::TrackOpener opener(core_.sound);
    opener.free(state.PrimaryChannel);
    opener.free(state.SecondaryChannel);
    core_.sound.BASS_Start();
    state.IsPaused = false;
    state.CrossfadeLeg = 0;
    state.SilenceTicks = 0;
    state.ActiveChannel = player::ChannelSlot::primary;
    state.StreamRecording = false;
    if (state.comfort.showsSavingAsItIs) {
        core_.screen.showRecording();
    }
    state.HeardBefore = 0;
    playback_.clock.watchTrack(false);
    track_ = track;
    from_ = from;
    current_ = true;
    sounded_ = false;
    metadata_.clear();
    brokenTold_ = false;
    announced_.clear();
    state.RadioPlaying = true;
    state.RadioMode = true;
    core_.screen.showSource();
    core_.lists.stdSS.showSounding(from == From::playlist ? track.row : 0);
    RadioLst_.showSounding(from == From::stations ? track.row : 0);
    screen.begin(track.title.empty() ? track.path : track.title);
    saving_->setWays(ways(false));
}

void StationPlayer::open(StationStatus status) {
    player::PlayerState& state = core_.state;
    core_.sound.BASS_StreamFree(state.PrimaryChannel);
    const std::shared_ptr<modNetRadio> saving = saving_;
    state.PrimaryChannel = core_.sound.BASS_StreamCreateURL(
        std::string(base::trimmed(track_.path)), 0, sound::BASS_STREAM_META,
        [saving](std::span<const std::byte> block, std::uintptr_t /*user*/) {
            saving->download(block);
        },
        0);
    headersRead_ = false;
    closed_ = false;
    looksWhileFull_ = 0;
    core_.sound.BASS_ChannelSetSyncMeta(
        state.PrimaryChannel,
        [saving](std::string_view metadata, std::uintptr_t /*user*/) { saving->DoMeta(metadata); },
        0);
    if (const auto before =
            core_.sound.BASS_StreamGetTags(state.PrimaryChannel, sound::BASS_TAG_META)) {
        saving->DoMeta(*before);
    }
    playback_.starter.startStream(state.PrimaryChannel);
    state.IsPlaying = true;
    screen.setStatus(status);
    looking_->setInterval(kOpeningMs);
    looking_->setEnabled(true);
    core_.news.restartVisualisation();
}

/// What is open is freed by who takes the channel.
void StationPlayer::leave() {
    looking_->setEnabled(false);
    reopening_.callOff();
    saving_->setStreamRecording(false);
    // The file of the song is closed when the stream lets it go.
    saving_ = std::make_shared<modNetRadio>(saving_->folder());
    current_ = false;
    screen.end();
}

void StationPlayer::showSource() {
    if (current_ && !core_.state.RadioMode) {
        leave();
        RadioLst_.showSounding(0);
        core_.state.StreamRecording = false;
        core_.screen.showRecording();
    }
}

void StationPlayer::reportNothing(const std::string& /*format*/, const std::string& /*word*/) {
    if (current_ && !starting_) {
        screen.setStatus(StationStatus::sounds);
        leave();
        core_.state.StreamRecording = false;
        core_.screen.showRecording();
    }
}

void StationPlayer::goOn() {
    if (!current_) {
        return;
    }
    const auto report = core_.sound.streamReport(core_.state.PrimaryChannel);
    if (report && !report->live) {
        return; // a file goes on where it stands
    }
    reopening_.callOff();
    if (report) {
        noteHeard();
    }
    takeSavingOver();
    open(StationStatus::connecting);
}

/// What was heard of the stream that is left counts on.
void StationPlayer::noteHeard() {
    core_.state.HeardBefore += playback_.time.GetHeardSeconds(core_.state.PrimaryChannel);
}

/// What a stream that is left has on its way is saved no more.
void StationPlayer::takeSavingOver() {
    saving_ = std::make_shared<modNetRadio>(*saving_);
}

void StationPlayer::record(bool on) {
    core_.state.StreamRecording = on;
    if (on) {
        saving_->setWays(ways(true));
    }
    saving_->setStreamRecording(on && current_);
    core_.screen.showRecording();
}

void StationPlayer::over(const StreamReport& report) {
    looking_->setEnabled(false);
    if (!report.live && (sounded_ || report.stage == StreamStage::ended)) {
        endFile();
        return;
    }
    if (!sounded_ && (isForGood(report) || !report.live)) {
        giveUp(report);
        return;
    }
    noteHeard();
    core_.sound.BASS_StreamFree(core_.state.PrimaryChannel);
    takeSavingOver();
    screen.setStatus(lostStatus());
    reopening_.lost();
}

StationStatus StationPlayer::lostStatus() const {
    return core_.state.comfort.tellsDeadStations && !sounded_ ? StationStatus::noAnswer
                                                              : StationStatus::reconnecting;
}

/// The folder is asked for when something is saved.
SavingWays StationPlayer::ways(bool recording) const {
    const base::Comfort& comfort = core_.state.comfort;
    std::string folder =
        recording && comfort.savesToRadioFolder && songFolder ? songFolder() : std::string();
    return {.comfort = comfort,
            .folder = folder.empty() ? std::string(saving_->folder()) : std::move(folder),
            .station = screen.name()};
}

/// Nothing more comes of it by itself.
void StationPlayer::endFile() {
    if (from_ == From::playlist) {
        playback_.advance.endTrack();
    } else {
        playback_.transport.button_stop();
    }
}

void StationPlayer::giveUp(const StreamReport& report) {
    core_.sound.BASS_StreamFree(core_.state.PrimaryChannel);
    core_.state.IsPlaying = false;
    record(false);
    const bool silent =
        report.trouble == StreamTrouble::notAudio || report.trouble == StreamTrouble::emptyList;
    screen.setStatus(silent && core_.state.comfort.tellsDeadStations
                         ? StationStatus::noSound
                         : StationStatus::noSuchStation);
    core_.news.stopVisualisation();
}

} // namespace tovik::radio
