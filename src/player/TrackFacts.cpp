// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackFacts.h"

#include "base/Text.h"
#include "config/SettingText.h"
#include "player/ClockText.h"
#include "player/LiveSetting.h"
#include "playlist/FileNames.h"
#include "tags/ShownField.h"
#include "tags/TagTitle.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tovik::player {

namespace {

/// As many characters of a tag's field as the window has room for.
constexpr std::size_t kFieldWidth = 17;

std::int64_t fileLength(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<std::int64_t>(size);
}

} // namespace

std::string TrackFacts::length(sound::Handle channel) {
    return clockText(core_.state.comfort, time_.GetDuration(channel));
}

void TrackFacts::takeOverFields() {
    core_.state.RadioMode = false;
    core_.screen.showSource();
}

void TrackFacts::show(sound::Handle channel, const TrackRef& track, const std::string& popup) {
    core_.lists.stdSS.showSounding(track.row);
    core_.lists.stdSS.setUnplayable(track.row, false);
    showFormat(channel, track.path);
    readFields(track.path);
    core_.screen.showFacts();
    if (core_.state.TracksStarted > 1) {
        refreshRowTime(channel, track.row);
    }
    refreshRowTitle(track);
    showPopup(channel, popup.empty() ? track.title + " " : popup);
    showTitles(channel, track);
    core_.state.IsPlaying = true;
    core_.state.IsPaused = false;
    std::ranges::replace(core_.screen.playing.fields, std::string(), std::string(kUnknown));
    core_.screen.showFacts();
    core_.news.restartVisualisation();
    core_.news.reportTrack({.path = track.path,
                            .artist = std::string(tags::shownField(tag_.Artist())),
                            .title = std::string(tags::shownField(tag_.Title())),
                            .album = std::string(tags::shownField(tag_.Album())),
                            .listTitle = track.title,
                            .seconds = time_.GetDuration(channel)});
}

void TrackFacts::showNothingKnown(const TrackRef& track) {
    core_.lists.stdSS.showSounding(track.row);
    core_.lists.stdSS.setUnplayable(track.row, false);
    core_.screen.playing.fields.fill(kUnknown);
    core_.screen.showFacts();
    core_.news.reportUnknownTrack(track.path);
}

void TrackFacts::noteUnopened(const TrackRef& track) {
    core_.lists.stdSS.setUnplayable(track.row, true);
    core_.news.reportUnplayable();
}

void TrackFacts::showUnopened(const TrackRef& track) {
    noteUnopened(track);
    core_.state.CurrentTitle = track.title;
    core_.screen.playing.miniCaption = " " + core_.state.CurrentTitle;
    core_.screen.playing.scrollerText = core_.screen.playing.miniCaption;
    core_.screen.playing.caption = core_.screen.playing.miniCaption;
    core_.screen.showTitles();
}

void TrackFacts::showSilence() {
    core_.lists.stdSS.showSounding(0);
    core_.screen.playing.time = kNoTime;
    core_.screen.showTime();
    core_.screen.playing.percent = 0;
    core_.screen.showPosition();
    core_.screen.playing.fields.fill(kUnknown);
    core_.screen.showFacts();
    core_.news.reportUnknownTrack({});
}

void TrackFacts::showFormat(sound::Handle channel, const std::string& path) {
    const std::int16_t rate = time_.GetBitsPerSecond(channel, fileLength(path));
    const std::string frequency = std::to_string(time_.GetFrequency(channel)).substr(0, 2);
    core_.state.TrackInfoText = std::to_string(rate) + " kbps  " + frequency + " KHZ";
    core_.state.TrackInfoMode = time_.GetMode(channel);
    core_.screen.playing.infoText = core_.state.TrackInfoText;
    core_.screen.playing.mode = core_.state.TrackInfoMode;
}

void TrackFacts::readFields(const std::string& path) {
    tag_.MP3File(path);
    const auto shown = [](std::string_view field) {
        return std::string(base::firstCharacters(tags::shownField(field), kFieldWidth));
    };
    // Without a tag the number is 0, which would be the name of a genre.
    const std::string_view genre =
        tag_.HasID3v1Tag() ? tags::cMP3ID3v1::GenreName(tag_.genre()) : std::string_view();
    core_.screen.playing.fields = {shown(tag_.Artist()), shown(tag_.Title()), shown(tag_.Album()),
                                   shown(tag_.Year()), shown(genre)};
}

void TrackFacts::refreshRowTime(sound::Handle channel, playlist::Row row) {
    const std::int32_t duration = time_.GetDuration(channel);
    core_.lists.stdSS.RefreshTime(row, duration, CBASS_TIME::GetTime(duration));
}

/// A row that was added by the name of its file gets its real title at its first start. A title
/// from a list stays: the tag may hold no more than the beginning of it.
void TrackFacts::refreshRowTitle(const TrackRef& track) {
    playlist::stdSS& list = core_.lists.stdSS;
    if (list.text(track.row, playlist::RowText::FileName) != track.path ||
        !playlist::isNamedAfter(list.text(track.row, playlist::RowText::Title), track.path)) {
        return;
    }
    if (const auto title = tags::tagTitle(tag_)) {
        list.RefreshTitle(track.row, *title);
    }
}

void TrackFacts::showPopup(sound::Handle channel, const std::string& text) {
    if (!readLive(core_.settings, "OSD", config::settingToFlag)) {
        return;
    }
    core_.news.showTitlePopup(text + "(" + length(channel) + ")");
}

void TrackFacts::showTitles(sound::Handle channel, const TrackRef& track) {
    core_.state.CurrentTitle = track.title;
    core_.screen.playing.scrollerText =
        " " + core_.state.CurrentTitle + " (" + length(channel) + ")";
    core_.screen.playing.caption = core_.screen.playing.scrollerText;
    core_.screen.playing.miniCaption = " " + core_.state.CurrentTitle;
    core_.screen.showTitles();
}

} // namespace tovik::player
