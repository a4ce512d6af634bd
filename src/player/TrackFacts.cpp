// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackFacts.h"

#include "base/Text.h"
#include "config/SettingText.h"
#include "player/ClockText.h"
#include "player/LiveSetting.h"
#include "playlist/FileNames.h"
#include "tags/FactsDesk.h"
#include "tags/ShownField.h"
#include "tags/TagTitle.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tovik::player {

namespace {

/// As many characters of a tag's field as the window has room for.
constexpr std::size_t kFieldWidth = 17;

std::int64_t fileLength(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<std::int64_t>(size);
}

std::string shownOf(const std::string& field) {
    return std::string(base::firstCharacters(field, kFieldWidth));
}

} // namespace

TrackFacts::TrackFacts(const Core& core, tags::cMP3ID3v1& tag) : core_(core), tag_(tag) {
    if (core_.facts != nullptr) {
        taking_ = core_.facts->addTaker(
            [this](const std::string& path, const tags::FileFacts& facts) { take(path, facts); });
    }
}

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
    const tags::FileFacts facts = read(track);
    showFields(facts);
    if (core_.state.TracksStarted > 1 || core_.state.comfort.writesFirstLength) {
        refreshRowTime(channel, track.row);
    }
    const TrackRef shown = refreshRowTitle(track, facts);
    showPopup(channel, popup.empty() ? shown.title + " " : popup);
    showTitles(channel, shown);
    core_.state.IsPlaying = true;
    core_.state.IsPaused = false;
    nameUnknown();
    core_.news.restartVisualisation();
    core_.news.reportTrack(reportOf(channel, shown, facts));
}

TrackReport TrackFacts::reportOf(sound::Handle channel, const TrackRef& track,
                                 const tags::FileFacts& facts) {
    return {.path = track.path,
            .artist = facts.artist,
            .title = facts.title,
            .album = facts.album,
            .listTitle = track.title,
            .seconds = time_.GetDuration(channel)};
}

void TrackFacts::showNothingKnown(const TrackRef& track) {
    forgetTrack();
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
    forgetTrack();
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
    const std::int32_t frequency = time_.GetFrequency(channel);
    showFormat(rate, frequency, time_.GetMode(channel));
}

void TrackFacts::showFormat(std::int32_t kilobits, std::int32_t hertz, const std::string& mode) {
    const std::string frequency = std::to_string(hertz).substr(0, 2);
    core_.state.TrackInfoText = std::to_string(kilobits) + " kbps  " + frequency + " KHZ";
    core_.state.TrackInfoMode = mode;
    core_.screen.playing.infoText = core_.state.TrackInfoText;
    core_.screen.playing.mode = core_.state.TrackInfoMode;
}

tags::FileFacts TrackFacts::read(const TrackRef& track) {
    forgetTrack();
    if (core_.state.comfort.readsEveryFormat && core_.facts != nullptr) {
        return readEveryFormat(track);
    }
    tag_.MP3File(track.path);
    // Without a tag the number is 0, which would be the name of a genre.
    return {.artist = std::string(tags::shownField(tag_.Artist())),
            .title = std::string(tags::shownField(tag_.Title())),
            .album = std::string(tags::shownField(tag_.Album())),
            .year = std::string(tags::shownField(tag_.Year())),
            .genre = std::string(tag_.HasID3v1Tag() ? tags::cMP3ID3v1::GenreName(tag_.genre())
                                                    : std::string_view()),
            .track = tag_.track()};
}

tags::FileFacts TrackFacts::readEveryFormat(const TrackRef& track) {
    const tags::FileFacts* known = core_.facts->known(track.path);
    if (known == nullptr) {
        core_.facts->ask(track.path, tags::FactsDesk::Urgency::first);
        known = core_.facts->known(track.path);
    }
    track_ = {.track = track, .sounds = true};
    if (known == nullptr) {
        return {};
    }
    told_ = *known;
    return *known;
}

void TrackFacts::forgetTrack() {
    track_.reset();
    told_.reset();
}

/// The rest is known, or has changed: it takes its places as if it had been there from the
/// beginning.
void TrackFacts::take(const std::string& path, const tags::FileFacts& facts) {
    if (!track_ || track_->track.path != path || told_ == facts ||
        core_.state.IsPlaying != track_->sounds || core_.state.RadioMode) {
        return;
    }
    told_ = facts;
    if (!track_->sounds) {
        takeWaiting(track_->track, facts);
        return;
    }
    const playlist::stdSS& list = core_.lists.stdSS;
    TrackRef& track = track_->track;
    if (list.text(list.SoundingRow(), playlist::RowText::FileName) == path) {
        track.row = list.SoundingRow(); // the list may have changed since
    }
    const sound::Handle channel = core_.state.active();
    showFields(facts);
    nameUnknown();
    TrackRef shown = refreshRowTitle(track, facts);
    if (list.text(shown.row, playlist::RowText::FileName) == path) {
        shown.title = list.text(shown.row, playlist::RowText::Title);
    }
    if (shown.title != track.title) {
        showTitles(channel, shown);
    }
    track = shown;
    core_.news.reportFacts(reportOf(channel, shown, facts));
}

void TrackFacts::showWaiting(const TrackRef& track) {
    if (core_.state.comfort.readsEveryFormat && core_.facts != nullptr &&
        playlist::isOnDisk(track.path)) {
        forgetTrack();
        track_ = {.track = track, .sounds = false};
        core_.facts->ask(track.path, tags::FactsDesk::Urgency::first);
    }
}

void TrackFacts::takeWaiting(const TrackRef& track, const tags::FileFacts& facts) {
    showFields(facts);
    if (facts.kilobits > 0 && facts.hertz > 0) {
        showFormat(facts.kilobits, facts.hertz, CBASS_TIME::modeOf(facts.channels));
    }
    nameUnknown();
    const playlist::stdSS& list = core_.lists.stdSS;
    const TrackRef shown = refreshRowTitle(track, facts);
    // Another part may have brought the title into the row.
    const bool isThere = list.text(track.row, playlist::RowText::FileName) == track.path;
    const std::int32_t told = isThere ? list.seconds(track.row) : 0;
    if (const std::int32_t seconds = told > 0 ? told : facts.seconds; seconds > 0) {
        showTitles(isThere ? std::string(list.text(track.row, playlist::RowText::Title))
                           : shown.title,
                   clockText(core_.state.comfort, seconds));
        core_.screen.holdTitles();
    }
}

void TrackFacts::showFields(const tags::FileFacts& facts) {
    NowPlaying& playing = core_.screen.playing;
    const std::array<std::string, kTagFields> whole{facts.artist, facts.title, facts.album,
                                                    facts.year, facts.genre};
    std::ranges::transform(whole, playing.fields.begin(), shownOf);
    playing.wholeFields =
        core_.state.comfort.tellsWholeTexts ? whole : std::array<std::string, kTagFields>();
    core_.screen.showFacts();
}

void TrackFacts::nameUnknown() {
    std::ranges::replace(core_.screen.playing.fields, std::string(), std::string(kUnknown));
    core_.screen.showFacts();
}

void TrackFacts::refreshRowTime(sound::Handle channel, playlist::Row row) {
    const std::int32_t duration = time_.GetDuration(channel);
    core_.lists.stdSS.RefreshTime(row, duration, CBASS_TIME::GetTime(duration));
}

/// A row that was added by the name of its file gets its real title at its first start. A title
/// from a list stays: the tag may hold no more than the beginning of it.
TrackRef TrackFacts::refreshRowTitle(const TrackRef& track, const tags::FileFacts& facts) {
    playlist::stdSS& list = core_.lists.stdSS;
    if (list.text(track.row, playlist::RowText::FileName) != track.path ||
        !playlist::isNamedAfter(list.text(track.row, playlist::RowText::Title), track.path)) {
        return track;
    }
    const bool kinder = core_.state.comfort.readsEveryFormat;
    const std::string title =
        kinder ? tags::listTitle(facts) : tags::tagTitle(tag_).value_or(std::string());
    if (title.empty()) {
        return track;
    }
    list.RefreshTitle(track.row, title);
    TrackRef shown = track;
    if (kinder) {
        shown.title = title;
    }
    return shown;
}

void TrackFacts::showPopup(sound::Handle channel, const std::string& text) {
    if (!readLive(core_.settings, "OSD", config::settingToFlag)) {
        return;
    }
    core_.news.showTitlePopup(text + "(" + length(channel) + ")");
}

void TrackFacts::showTitles(sound::Handle channel, const TrackRef& track) {
    showTitles(track.title, length(channel));
}

void TrackFacts::showTitles(const std::string& title, const std::string& length) {
    core_.state.CurrentTitle = title;
    core_.screen.playing.scrollerText = " " + core_.state.CurrentTitle + " (" + length + ")";
    core_.screen.playing.caption = core_.screen.playing.scrollerText;
    core_.screen.playing.miniCaption = " " + core_.state.CurrentTitle;
    core_.screen.showTitles();
}

} // namespace tovik::player
