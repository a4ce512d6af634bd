// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Remote.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Url.h"
#include "base/Windows1252.h"
#include "player/FadeTime.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tovik::desktop {

using commands::CommandId;
using playlist::Row;

namespace {

constexpr double kMicroseconds = 1'000'000;
constexpr double kWholeVolume = 100;
constexpr std::size_t kYear = 3;
constexpr std::size_t kGenre = 4;
constexpr std::size_t kYearDigits = 4;

/// Only a year may stand where a date is asked for.
std::string yearIn(const std::string& text) {
    const std::string year(base::trimmed(text));
    const bool fits = year.size() == kYearDigits &&
                      std::ranges::all_of(year, [](char c) { return c >= '0' && c <= '9'; });
    return fits ? year : std::string();
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

std::string Remote::urlOf(const std::string& path) {
    if (base::isUrl(path)) {
        return base::displayText(path);
    }
    return path.starts_with('/') ? base::fileUrl(path) : std::string();
}

void Remote::tell() const {
    if (changed) {
        changed();
    }
}

void Remote::reportTrack(const player::TrackReport& report) {
    const std::string before = known_;
    if (report.path != report_.path) {
        art_.clear();
    }
    report_ = report;
    known_ = currentTrack();
    tell();
    if (known_ == before && seeked) {
        seeked(0); // nothing else would tell that it began anew
    }
    if (started) {
        started(report.path);
    }
}

void Remote::reportFacts(const player::TrackReport& report) {
    if (report.path == report_.path) {
        report_ = report;
        tell();
    }
}

void Remote::reportUnknownTrack(const std::string& path) {
    report_ = {};
    report_.path = path;
    known_ = kNoTrack;
    art_.clear();
    tell();
}

void Remote::reportNothing(const std::string& /*format*/, const std::string& /*word*/) {
    reportUnknownTrack({});
}

void Remote::reportSeek() {
    if (seeked) {
        seeked(Position());
    }
}

void Remote::setArt(const std::string& path, const std::string& url) {
    if (path == report_.path) {
        art_ = url;
        tell();
    }
}

/// The player counts a track that is over, or did not open, as playing until something follows it.
bool Remote::playing() const {
    const player::PlayerState& state = p_.core.state;
    if (!state.IsPlaying || state.RadioMode || state.IsPaused) {
        return state.IsPlaying;
    }
    const sound::Handle channel = state.active();
    return channel != sound::kNoHandle &&
           p_.core.sound.BASS_ChannelIsActive(channel) != sound::Activity::stopped;
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
    if (const auto place = p_.playback.rows.waiting()) {
        return microseconds(place->seconds);
    }
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
        return p_.playback.rows.waiting() ? trackOf(currentTrack())
                                          : RemoteTrack{.trackId = kNoTrack};
    }
    const auto field = [this](std::size_t which) {
        const std::string& text = p_.core.screen.playing.fields.at(which);
        return text == player::kUnknown ? std::string() : base::displayText(text);
    };
    // What did not open gave its title to the window while the one before sounds on.
    const std::string& row =
        report_.listTitle.empty() ? p_.core.state.CurrentTitle : report_.listTitle;
    const std::string& title = report_.title.empty() ? row : report_.title;
    return {.trackId = currentTrack(),
            .length = length(),
            .title = base::displayText(title),
            .artist = base::displayText(report_.artist),
            .album = base::displayText(report_.album),
            .genre = field(kGenre),
            .year = yearIn(field(kYear)),
            .url = urlOf(report_.path),
            .artUrl = art_};
}

RemoteState Remote::state() const {
    const player::PlayerState& state = p_.core.state;
    const playlist::stdSS& list = p_.core.lists.stdSS;
    const bool any = list.ListCount() > 0;
    RemoteState remote;
    if (playing()) {
        remote.PlaybackStatus = state.IsPaused ? "Paused" : "Playing";
    } else if (p_.playback.rows.waiting()) {
        remote.PlaybackStatus = "Paused"; // Play goes on where the last session ended
    }
    remote.LoopStatus = state.RepeatOn ? "Playlist" : "None";
    remote.Shuffle = state.ShuffleOn;
    remote.Volume = state.CurrentVolume / kWholeVolume;
    remote.Metadata = current();
    remote.CanGoNext = p_.playback.advance.hasNext();
    const bool picksAnew = state.ShuffleOn && !state.comfort.remembersPicks;
    remote.CanGoPrevious = picksAnew ? any && state.RepeatOn : p_.playback.advance.hasPrevious();
    remote.CanPlay = any || playing();
    remote.CanPause = remote.CanPlay; // it is not to come and go with what the player does
    remote.CanSeek = playing() && remote.Metadata.length > 0;
    return remote;
}

/// What was paused stays so, and what is stopped only has the row selected that would follow.
void Remote::go(CommandId command, Direction direction, bool possible) {
    if (!playing()) {
        const auto row = p_.playback.advance.stepTo(direction);
        if (row && *row >= 1) { // a pick may be none
            p_.core.lists.stdSS.SelectIndex(*row);
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
    go(CommandId::next, Direction::forth, state().CanGoNext);
}

void Remote::Previous() {
    go(CommandId::previous, Direction::back, state().CanGoPrevious);
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

bool Remote::PlayPause() {
    if (!state().CanPause) {
        return false;
    }
    if (playing()) {
        p_.commands.run(CommandId::pause);
    } else {
        Play();
    }
    return true;
}

void Remote::Stop() {
    const bool waits = p_.playback.rows.waiting().has_value();
    if (waits || playing()) {
        p_.commands.run(CommandId::stop);
    }
    if (waits) {
        tell();
    }
}

void Remote::moveTo(std::int64_t position) {
    const sound::Handle channel = p_.core.state.active();
    const double seconds = static_cast<double>(position) / kMicroseconds;
    const bool moved = p_.core.sound.BASS_ChannelSetPosition(
        channel, p_.core.sound.BASS_ChannelSeconds2Bytes(channel, seconds));
    p_.core.state.SilenceTicks = 0;
    if (moved && seeked) {
        seeked(Position()); // not every place can be reached
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

} // namespace tovik::desktop
