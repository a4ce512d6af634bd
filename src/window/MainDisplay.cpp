// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainDisplay.h"

#include "window/PanelTable.h"
#include "window/PositionMark.h"

#include <array>
#include <cstddef>
#include <utility>

namespace tovik::window {

namespace {

/// The digit elements and the places of their characters in "mm:ss"; the colon between them stays.
constexpr std::array<std::size_t, 4> kDigits = {1, 2, 4, 5};

constexpr const char* kMono = "Mono";
constexpr const char* kStereo = "Stereo";

Strip brightIf(bool bright) {
    return bright ? Strip::Bright : Strip::Dim;
}

} // namespace

MainDisplay::MainDisplay(const player::PlayerState& state, MainElements& elements,
                         TextFields& fields, ui::ImgScroller& scroller, SetCaption setCaption)
    : state_(state), elements_(elements), fields_(fields), scroller_(scroller),
      setCaption_(std::move(setCaption)) {}

void MainDisplay::showFacts(const player::NowPlaying& playing) {
    showFormat(playing);
    for (std::size_t i = 0; i < player::kTagFields; ++i) {
        elements_.touch(MainElement::lblinfo, i).caption = playing.fields[i];
    }
}

void MainDisplay::showFormat(const player::NowPlaying& playing) {
    fields_.show(MainElement::musicinfo_img, 0, playing.infoText, Strip::Bright);
    fields_.show(MainElement::mono_img, 0, kMono, brightIf(playing.mode == kMono));
    fields_.show(MainElement::Stereo_img, 0, kStereo, brightIf(playing.mode == kStereo));
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
    for (const std::size_t digit : kDigits) {
        showDigit(digit, playing.time.at(digit - 1));
    }
    // The minus sign goes with the mode, on the panel that has a clock.
    applyPanel(elements_, state_, MainElement::timed);
}

void MainDisplay::showDigit(std::size_t place, char digit) {
    ui::Element& element = elements_.touch(MainElement::timed, place);
    element.caption = digit;
    if (digit >= '0' && digit <= '9') {
        element.picture =
            elements_.get(MainElement::Digit, static_cast<std::size_t>(digit - '0')).picture;
    }
}

void MainDisplay::showPosition(const player::NowPlaying& playing) {
    const double onePercent = elements_.get(MainElement::posbar).width / 100.0;
    placeMark(elements_, playing.percent * onePercent);
}

void MainDisplay::showVolume(const player::NowPlaying& playing) {
    fields_.show(MainElement::shwchange, 0, playing.volumeText, Strip::Bright);
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
