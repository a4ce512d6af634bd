// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackFacts.h"

#include "base/Text.h"
#include "base/TimeText.h"
#include "config/SettingText.h"
#include "tags/ShownField.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tovik::player {

namespace {

/// As many characters of a tag's field as the window has room for.
constexpr std::size_t kFieldWidth = 17;

constexpr const char* kUnknown = "N/A";

std::int64_t fileLength(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<std::int64_t>(size);
}

} // namespace

TrackFacts::TrackFacts(PlayerState& state, CBASS_TIME& time, config::Settings& settings,
                       tags::cMP3ID3v1& tag, playlist::stdSS& list, NowPlaying& playing,
                       NowPlayingView& view, TrackEvents& events)
    : state_(state), time_(time), settings_(settings), tag_(tag), list_(list), playing_(playing),
      view_(view), events_(events) {}

std::string TrackFacts::lastFive(sound::Handle channel) {
    return base::lastFive(time_.GetDuration(channel));
}

void TrackFacts::takeOverFields() {
    state_.RadioMode = false;
    view_.showFields(true);
}

void TrackFacts::show(sound::Handle channel, const std::string& path, const std::string& title) {
    showSoundingRow();
    showFormat(channel, path);
    readFields(path);
    view_.showFacts(playing_);
    if (state_.TracksStarted > 1) {
        refreshRowTime(channel);
    }
    showPopup(channel, title);
    showTitles(channel);
    state_.IsPlaying = true;
    state_.IsPaused = false;
    std::ranges::replace(playing_.fields, std::string(), std::string(kUnknown));
    view_.showFacts(playing_);
    events_.restartVisualisation();
    if (state_.CurrentPanel > 1) {
        view_.showFields(false);
    }
    events_.reportTrack({.path = path,
                         .artist = std::string(tags::shownField(tag_.Artist())),
                         .title = std::string(tags::shownField(tag_.Title())),
                         .album = std::string(tags::shownField(tag_.Album())),
                         .listTitle = list_.OutTitle,
                         .seconds = time_.GetDuration(channel)});
}

void TrackFacts::showNothingKnown() {
    showSoundingRow();
    playing_.fields.fill(kUnknown);
    view_.showFacts(playing_);
}

void TrackFacts::showSoundingRow() {
    // Whoever starts a row has made it the selected one.
    list_.showSounding(list_.SelectedIndex);
}

void TrackFacts::showUnopened() {
    state_.CurrentTitle = list_.OutTitle;
    playing_.miniCaption = " " + state_.CurrentTitle;
    playing_.scrollerText = playing_.miniCaption;
    playing_.caption = playing_.miniCaption;
    view_.showTitles(playing_);
    if (state_.CurrentPanel > 1) {
        view_.showFields(false);
    }
}

void TrackFacts::showSilence() {
    list_.showSounding(0);
    playing_.time = kNoTime;
    view_.showTime(playing_);
    playing_.percent = 0;
    view_.showPosition(playing_);
    playing_.fields.fill(kUnknown);
    view_.showFacts(playing_);
}

void TrackFacts::showFormat(sound::Handle channel, const std::string& path) {
    const std::int16_t rate = time_.GetBitsPerSecond(channel, fileLength(path));
    const std::string frequency = std::to_string(time_.GetFrequency(channel)).substr(0, 2);
    state_.TrackInfoText = std::to_string(rate) + " kbps  " + frequency + " KHZ";
    state_.TrackInfoMode = time_.GetMode(channel);
    playing_.infoText = state_.TrackInfoText;
    playing_.mode = state_.TrackInfoMode;
}

void TrackFacts::readFields(const std::string& path) {
    tag_.MP3File(path);
    const auto shown = [](std::string_view field) {
        return std::string(base::firstCharacters(tags::shownField(field), kFieldWidth));
    };
    // Without a tag the number is 0, which would be the name of a genre.
    const std::string_view genre =
        tag_.HasID3v1Tag() ? tags::cMP3ID3v1::GenreName(tag_.genre()) : std::string_view();
    playing_.fields = {shown(tag_.Artist()), shown(tag_.Title()), shown(tag_.Album()),
                       shown(tag_.Year()), shown(genre)};
}

void TrackFacts::refreshRowTime(sound::Handle channel) {
    const std::int32_t duration = time_.GetDuration(channel);
    list_.RefreshTime(list_.SelectedIndex, duration, CBASS_TIME::GetTime(duration));
}

void TrackFacts::showPopup(sound::Handle channel, const std::string& title) {
    if (!settings_.getAs("OSD", config::settingToFlag)) {
        return;
    }
    const std::string time = "(" + lastFive(channel) + ")";
    events_.showTitlePopup(title.empty() ? list_.OutTitle + " " + time : title + time);
}

void TrackFacts::showTitles(sound::Handle channel) {
    state_.CurrentTitle = list_.OutTitle;
    playing_.scrollerText = " " + state_.CurrentTitle + " (" + lastFive(channel) + ")";
    playing_.caption = playing_.scrollerText;
    playing_.miniCaption = " " + state_.CurrentTitle;
    view_.showTitles(playing_);
}

} // namespace tovik::player
