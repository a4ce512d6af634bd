// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationScreen.h"

#include "base/Text.h"
#include "radio/StreamTitle.h"

#include <utility>

namespace tovik::radio {

namespace {

/// Which of a language's notices tell a status, from `connecting` on.
constexpr std::array<int, kStationStatuses - 1> kNotices{5, 6, 7, 8, 19, 20};

constexpr std::size_t kRateDigits = 2;

} // namespace

void StationScreen::readWords() {
    for (std::size_t i = 0; i < words_.size(); ++i) {
        words_.at(i) = language_.get_Notice_String(kNotices.at(i));
    }
    if (shown_ && status_ != StationStatus::sounds) {
        show();
    }
}

void StationScreen::begin(std::string_view title) {
    shown_ = true;
    name_ = shownText(title);
    title_ = name_;
    status_ = StationStatus::connecting;
    percent_ = 0;
    player::NowPlaying& playing = core_.screen.playing;
    playing.time = player::kNoTime;
    playing.countsDown = false;
    core_.screen.showTime();
    playing.percent = 0;
    core_.screen.showPosition();
    // They are hidden; who asks for the artist and the title of a track finds none.
    playing.fields.fill(player::kUnknown);
    core_.state.TrackInfoText.clear();
    core_.state.TrackInfoMode.clear();
    playing.infoText.clear();
    playing.mode.clear();
    core_.screen.showFacts();
    show();
}

void StationScreen::setName(std::string_view name) {
    std::string shown = shownServerText(name);
    if (shown_ && shown != name_) {
        name_ = std::move(shown);
        show();
    }
}

void StationScreen::setTitle(std::string_view title) {
    // A station that is between two songs is still that station.
    if (const std::string_view shown = title.empty() ? name_ : title; shown_ && shown != title_) {
        title_ = shown;
        show();
    }
}

void StationScreen::setStatus(StationStatus status, int percent) {
    if (shown_ && (status != status_ || percent != percent_)) {
        status_ = status;
        percent_ = percent;
        show();
    }
}

void StationScreen::setFormat(int kbps, int hertz, const std::string& mode) {
    std::string text;
    if (kbps > 0) {
        text = std::to_string(kbps) + " kbps";
        if (hertz > 0) {
            text += "  " + std::to_string(hertz).substr(0, kRateDigits) + " KHZ";
        }
    }
    player::PlayerState& state = core_.state;
    if (!shown_ || (text == state.TrackInfoText && mode == state.TrackInfoMode)) {
        return;
    }
    state.TrackInfoText = text;
    state.TrackInfoMode = mode;
    core_.screen.playing.infoText = text;
    core_.screen.playing.mode = mode;
    core_.screen.showFormat();
}

std::string StationScreen::statusText() const {
    if (status_ == StationStatus::sounds) {
        return {};
    }
    const std::size_t word = static_cast<std::size_t>(status_) - 1;
    return base::replaceAll(words_.at(word), "[x]", std::to_string(percent_));
}

void StationScreen::show() {
    const std::string status = statusText();
    const std::string& line = status.empty() ? title_ : status;
    player::NowPlaying& playing = core_.screen.playing;
    playing.stationText = line == name_ ? name_ : name_ + "\n" + line;
    core_.screen.showStation();
    core_.state.CurrentTitle = title_;
    playing.caption = " " + title_ + (status.empty() ? "" : " - " + status);
    playing.miniCaption = playing.caption;
    playing.scrollerText = " " + line;
    core_.screen.showTitles();
}

} // namespace tovik::radio
