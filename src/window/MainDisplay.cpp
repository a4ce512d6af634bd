// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainDisplay.h"

#include "ui/GlyphText.h"
#include "window/PanelTable.h"
#include "window/PositionMark.h"

#include <utility>

namespace tovik::window {

namespace {

constexpr TrackPlaces kPlaces{
    .info = ui::addressOf(MainElement::musicinfo_img),
    .mono = ui::addressOf(MainElement::mono_img),
    .stereo = ui::addressOf(MainElement::Stereo_img),
    .volume = ui::addressOf(MainElement::shwchange),
    .timed = ui::addressOf(MainElement::timed),
    .digits = ui::addressOf(MainElement::Digit),
};

} // namespace

MainDisplay::MainDisplay(const player::PlayerState& state, MainElements& elements,
                         TextFields& fields, ui::ImgScroller& scroller, SetCaption setCaption)
    : state_(state), elements_(elements), fields_(fields), track_(elements, fields, kPlaces),
      scroller_(scroller), setCaption_(std::move(setCaption)) {}

void MainDisplay::showFacts(const player::NowPlaying& playing) {
    showFormat(playing);
    for (std::size_t i = 0; i < player::kTagFields; ++i) {
        const std::string& field = playing.fields.at(i);
        const std::string& whole = playing.wholeFields.at(i);
        const bool goesOn = whole.size() > field.size() && whole.starts_with(field);
        ui::Element& element = elements_.touch(MainElement::lblinfo, i);
        element.caption = field;
        element.tooltip = goesOn ? whole : std::string();
    }
}

void MainDisplay::showFormat(const player::NowPlaying& playing) {
    track_.showFormat(playing);
}

void MainDisplay::showTitles(const player::NowPlaying& playing) {
    elements_.touch(MainElement::songname).caption = playing.scrollerText;
    scroller_.setText(playing.scrollerText);
    showCaptions(playing);
}

void MainDisplay::showCaptions(const player::NowPlaying& playing) {
    setCaption_(playing.caption);
}

void MainDisplay::showTime(const player::NowPlaying& playing) {
    track_.showTime(playing);
    // The minus sign goes with the mode, on the panel that has a clock.
    applyPanel(elements_, state_, MainElement::timed);
}

void MainDisplay::showPosition(const player::NowPlaying& playing) {
    const double onePercent = elements_.get(MainElement::posbar).width / 100.0;
    placeMark(elements_, playing.percent * onePercent);
}

void MainDisplay::showVolume(const player::NowPlaying& playing) {
    track_.showVolume(playing);
}

void MainDisplay::showBalance(const player::NowPlaying& playing) {
    fields_.show(MainElement::shwchange, 1,
                 playing.balanceHover ? playing.hoverText : playing.balanceText, Strip::Bright);
}

void MainDisplay::showStopNote() {
    const std::string words = elements_.get(MainElement::stopNote).caption;
    fields_.show(MainElement::stopNote, 0, words, Strip::Bright);
    applyPanel(elements_, state_, MainElement::stopNote);
}

void MainDisplay::showNotice(const player::NowPlaying& playing) {
    fields_.show(MainElement::notice_img, 0, playing.notice, Strip::Bright);
    ui::Element& notice = elements_.touch(MainElement::notice_img);
    const auto fitting = static_cast<std::size_t>(notice.width) / ui::kGlyphWidth;
    notice.tooltip = playing.notice.size() > fitting ? playing.notice : std::string();
}

void MainDisplay::showStation(const player::NowPlaying& playing) {
    elements_.touch(MainElement::lblRDinfo).caption = playing.stationText;
}

void MainDisplay::showRecording() {
    applyPanel(elements_, state_, MainElement::Image1);
}

void MainDisplay::showSource() {
    applyPanel(elements_, state_, MainElement::lbltag);
    applyPanel(elements_, state_, MainElement::lblinfo);
    applyPanel(elements_, state_, MainElement::lblRDinfo);
}

} // namespace tovik::window
