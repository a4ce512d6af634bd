// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Remote.h"

#include "base/Numbers.h"
#include "base/Url.h"
#include "base/Windows1252.h"
#include "player/FadeTime.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace tovik::desktop {

using commands::CommandId;
using playlist::Row;
using playlist::RowText;

namespace {

constexpr double kMicroseconds = 1'000'000;
constexpr double kWholeVolume = 100;
constexpr const char* kUnknown = "N/A";
constexpr std::size_t kYear = 3;
constexpr std::size_t kGenre = 4;

std::string pathOf(RowIds::Id id) {
    return kTrackPath + std::to_string(id);
}

std::string urlOf(const std::string& path) {
    return base::isUrl(path) ? path : base::fileUrl(path);
}

std::int64_t microseconds(double seconds) {
    return std::llround(seconds * kMicroseconds);
}

} // namespace

Remote::Remote(Needs needs) : rows(needs.core.lists.stdSS), p_(std::move(needs)) {
    p_.core.screen.add(*this);
    p_.core.news.add(*this);
}

Remote::~Remote() {
    p_.core.news.remove(*this);
    p_.core.screen.remove(*this);
}

void Remote::tell() const {
    if (changed) {
        changed();
    }
}

void Remote::reportTrack(const player::TrackReport& report) {
    if (report.path != report_.path) {
        art_.clear();
    }
    report_ = report;
    tell();
    if (started) {
        started(report.path);
    }
}

void Remote::reportNothing(const std::string& /*format*/, const std::string& /*word*/) {
    report_ = {};
    art_.clear();
    tell();
}

void Remote::reportSeek() {
    if (seeked) {
        seeked(Position());
    }
}

void Remote::setArt(const std::string& url) {
    art_ = url;
    tell();
}

bool Remote::playing() const {
    return p_.core.state.IsPlaying;
}

Row Remote::playingRow() const {
    return playing() && !report_.path.empty() ? p_.core.lists.stdSS.SoundingRow() : 0;
}

std::int64_t Remote::length() const {
    const player::PlayerState& state = p_.core.state;
    const sound::Handle channel = state.active();
    if (!playing() || state.RadioMode || channel == sound::kNoHandle) {
        return 0;
    }
    std::int64_t bytes = p_.core.sound.BASS_StreamGetLength(channel);
    if (bytes < 0) {
        bytes = p_.core.sound.BASS_MusicGetLength(channel, true);
    }
    return std::max<std::int64_t>(
        0, microseconds(p_.core.sound.BASS_ChannelBytes2Seconds(channel, bytes)));
}

std::int64_t Remote::Position() const {
    const player::PlayerState& state = p_.core.state;
    const sound::Handle channel = state.playsStation() ? state.PrimaryChannel : state.active();
    if (!playing() || channel == sound::kNoHandle) {
        return 0;
    }
    const std::int64_t bytes = p_.core.sound.BASS_ChannelGetPosition(channel);
    const double before = state.playsStation() ? state.HeardBefore : 0;
    return std::max<std::int64_t>(
        0, microseconds(before + p_.core.sound.BASS_ChannelBytes2Seconds(channel, bytes)));
}

RemoteTrack Remote::current() const {
    if (!playing()) {
        return {.trackId = kNoTrack};
    }
    const auto field = [this](std::size_t which) {
        const std::string& text = p_.core.screen.playing.fields.at(which);
        return text == kUnknown ? std::string() : base::displayText(text);
    };
    const std::string title = report_.title.empty() ? p_.core.state.CurrentTitle : report_.title;
    return {.trackId = currentTrack(),
            .length = length(),
            .title = base::displayText(title),
            .artist = base::displayText(report_.artist),
            .album = base::displayText(report_.album),
            .genre = field(kGenre),
            .year = field(kYear),
            .url = report_.path.empty() ? std::string() : urlOf(report_.path),
            .artUrl = art_};
}

RemoteState Remote::state() const {
    const player::PlayerState& state = p_.core.state;
    const playlist::stdSS& list = p_.core.lists.stdSS;
    const bool any = list.ListCount() > 0;
    RemoteState remote;
    if (playing()) {
        remote.PlaybackStatus = state.IsPaused ? "Paused" : "Playing";
    }
    remote.LoopStatus = state.RepeatOn ? "Playlist" : "None";
    remote.Shuffle = state.ShuffleOn;
    remote.Volume = state.CurrentVolume / kWholeVolume;
    remote.Metadata = current();
    remote.CanGoNext = p_.playback.advance.hasNext();
    remote.CanGoPrevious =
        any && (state.ShuffleOn ? state.RepeatOn : state.RepeatOn || list.SelectedIndex > 1);
    remote.CanPlay = any || playing();
    remote.CanPause = playing();
    remote.CanSeek = remote.Metadata.length > 0;
    return remote;
}

/// What was paused stays so, and what is stopped only has another row selected.
void Remote::go(CommandId command, int step, bool possible) {
    if (!playing()) {
        playlist::stdSS& list = p_.core.lists.stdSS;
        const Row row = list.SelectedIndex + step;
        if (row >= 1 && row <= list.ListCount()) {
            list.SelectIndex(row);
            tell();
        }
        return;
    }
    if (!possible) {
        Stop();
        return;
    }
    const bool paused = p_.core.state.IsPaused;
    p_.commands.run(command);
    if (paused && playing() && !p_.core.state.IsPaused) {
        p_.commands.run(CommandId::pause);
    }
}

void Remote::Next() {
    go(CommandId::next, 1, state().CanGoNext);
}

void Remote::Previous() {
    go(CommandId::previous, -1, state().CanGoPrevious);
}

void Remote::Pause() {
    if (playing() && !p_.core.state.IsPaused) {
        p_.commands.run(CommandId::pause);
    }
}

void Remote::Play() {
    if (!playing()) {
        p_.commands.run(CommandId::play);
    } else if (p_.core.state.IsPaused) {
        p_.commands.run(CommandId::pause);
    }
}

void Remote::PlayPause() {
    if (playing()) {
        p_.commands.run(CommandId::pause);
    } else {
        Play();
    }
}

void Remote::Stop() {
    if (playing()) {
        p_.commands.run(CommandId::stop);
    }
}

void Remote::moveTo(std::int64_t position) {
    const sound::Handle channel = p_.core.state.active();
    const double seconds = static_cast<double>(position) / kMicroseconds;
    p_.core.sound.BASS_ChannelSetPosition(
        channel, p_.core.sound.BASS_ChannelSeconds2Bytes(channel, seconds));
    p_.core.state.SilenceTicks = 0;
    if (seeked) {
        seeked(position);
    }
}

void Remote::Seek(std::int64_t offset) {
    const std::int64_t whole = length();
    if (whole == 0) {
        return;
    }
    const std::int64_t now = Position();
    // Compared so that no sum can overflow.
    if (offset >= whole - now) {
        Next();
    } else {
        moveTo(offset < -now ? 0 : now + offset);
    }
}

void Remote::SetPosition(std::string_view trackId, std::int64_t position) {
    const std::int64_t whole = length();
    if (whole > 0 && trackId == currentTrack() && position >= 0 && position <= whole) {
        moveTo(position);
    }
}

bool Remote::OpenUri(const std::string& uri) {
    playlist::stdSS& list = p_.core.lists.stdSS;
    const Row before = list.ListCount();
    if (base::isWebUrl(uri)) {
        list.AddItem(uri, uri, uri, "", 0);
    } else if (const auto path = base::pathFromFileUrl(uri)) {
        p_.addFile(*path);
    }
    if (list.ListCount() == before) {
        return false;
    }
    p_.playback.rows.PlayRow(before + 1, player::fadeSeconds(p_.core.settings));
    return true;
}

bool Remote::setLoopStatus(std::string_view status) {
    if (status != "None" && status != "Playlist") {
        return false;
    }
    if ((status == "Playlist") != p_.core.state.RepeatOn) {
        p_.commands.run(CommandId::repeat);
    }
    return true;
}

void Remote::setShuffle(bool on) {
    if (on != p_.core.state.ShuffleOn) {
        p_.commands.run(CommandId::shuffle);
    }
}

void Remote::setVolume(double volume) {
    const double held = volume > 0 ? std::min(volume, 1.0) : 0; // no number is 0, too
    p_.playback.volume.change_volume(base::toInt16(held * kWholeVolume), -1);
}

std::vector<std::string> Remote::Tracks() const {
    const Row count = p_.core.lists.stdSS.ListCount();
    const Row middle = std::max<Row>(playingRow(), 1);
    const Row first =
        std::clamp<Row>(middle - kMostTracks / 2, 1, std::max<Row>(1, count - kMostTracks + 1));
    std::vector<std::string> tracks;
    for (Row row = first; row <= std::min<Row>(count, first + kMostTracks - 1); ++row) {
        tracks.push_back(pathOf(rows.idOf(row)));
    }
    return tracks;
}

std::string Remote::currentTrack() const {
    if (!playing()) {
        return kNoTrack;
    }
    // What sounds without a row, such as a station, has the number that no row has.
    return pathOf(rows.idOf(playingRow()));
}

Row Remote::rowOfPath(std::string_view trackId) const {
    const std::string_view begin = kTrackPath;
    if (!trackId.starts_with(begin)) {
        return 0;
    }
    trackId.remove_prefix(begin.size());
    RowIds::Id id = 0;
    const char* const end = trackId.data() + trackId.size();
    const auto read = std::from_chars(trackId.data(), end, id);
    return read.ec == std::errc() && read.ptr == end ? rows.rowOf(id) : 0;
}

RemoteTrack Remote::trackOf(std::string_view trackId) const {
    const Row row = rowOfPath(trackId);
    if (row == 0) {
        return {};
    }
    if (row == playingRow()) {
        return current();
    }
    const playlist::stdSS& list = p_.core.lists.stdSS;
    return {.trackId = std::string(trackId),
            .length = microseconds(std::max(list.seconds(row), 0)),
            .title = base::displayText(list.text(row, RowText::Title)),
            .url = urlOf(std::string(list.text(row, RowText::FileName)))};
}

void Remote::GoTo(std::string_view trackId) {
    if (const Row row = rowOfPath(trackId); row != 0) {
        p_.playback.rows.PlayRow(row, player::fadeSeconds(p_.core.settings));
    }
}

} // namespace tovik::desktop
