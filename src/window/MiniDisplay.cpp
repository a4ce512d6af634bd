// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniDisplay.h"

#include "window/TimeDisplay.h"

#include <algorithm>
#include <array>

namespace tovik::window {

namespace {

using N = MiniElement;

constexpr TrackPlaces kPlaces{
    .info = ui::addressOf(N::musicinfo_img),
    .mono = ui::addressOf(N::mono_img),
    .stereo = ui::addressOf(N::Stereo_img),
    .volume = ui::addressOf(N::shwchange),
    .timed = ui::addressOf(N::timed),
    .digits = ui::addressOf(N::Digit),
};

struct Lamps {
    bool player::PlayerState::*flag;
    N on;
    N off;
};

/// In the order of `Mode`.
constexpr std::array kLamps = {
    Lamps{&player::PlayerState::ShuffleOn, N::Shuffle, N::ShuffleDown},
    Lamps{&player::PlayerState::RepeatOn, N::loopImg, N::LoopImg2},
    Lamps{&player::PlayerState::CrossfadeOn, N::CFD, N::CFD2},
    Lamps{&player::PlayerState::SilenceSkipOn, N::Sld, N::sld2},
};

} // namespace

MiniDisplay::MiniDisplay(const player::PlayerState& state, MiniElements& elements,
                         TextFields& fields, SkinnedWindow& window)
    : state_(state), elements_(elements), fields_(fields), window_(window),
      track_(elements, fields, kPlaces) {}

void MiniDisplay::showAll(const player::NowPlaying& playing) {
    showFormat(playing);
    showTitles(playing);
    showTime(playing);
    showPlayed(elements_, playing.percent * elements_.get(N::posbar).width / 100);
    showVolume(playing);
    for (const player::Mode mode : {player::Mode::shuffle, player::Mode::repeat,
                                    player::Mode::crossfade, player::Mode::silenceSkip}) {
        showMode(mode);
    }
}

void MiniDisplay::drawTitle(std::u32string_view characters) {
    if (state_.MiniModeOn && window_.visible()) {
        static_cast<void>(fields_.draw(N::songname, 0, characters, Strip::Bright));
    }
}

void MiniDisplay::showFormat(const player::NowPlaying& playing) {
    if (state_.MiniModeOn) {
        track_.showFormat(playing);
    }
}

void MiniDisplay::showTitles(const player::NowPlaying& playing) {
    if (state_.MiniModeOn) {
        fields_.show(N::songname, 0, playing.scrollerText, Strip::Bright);
        showCaptions(playing);
    }
}

void MiniDisplay::showCaptions(const player::NowPlaying& playing) {
    if (state_.MiniModeOn) {
        window_.setCaption(playing.miniCaption);
    }
}

void MiniDisplay::showTime(const player::NowPlaying& playing) {
    if (state_.MiniModeOn) {
        track_.showTime(playing);
        elements_.touch(N::timed, 0).visible = state_.TimeDisplayMode != TimeDisplay::kElapsed;
    }
}

void MiniDisplay::showPosition(const player::NowPlaying& playing) {
    if (state_.MiniModeShown) {
        showPlayed(elements_, playing.percent * elements_.get(N::posbar).width / 100);
    }
}

void MiniDisplay::showVolume(const player::NowPlaying& playing) {
    if (state_.MiniModeOn) {
        track_.showVolume(playing);
    }
}

void MiniDisplay::showMode(player::Mode mode) {
    if (!state_.MiniModeOn) {
        return;
    }
    const Lamps& lamps = kLamps.at(static_cast<std::size_t>(mode));
    const bool on = state_.*lamps.flag;
    elements_.touch(lamps.on).visible = on;
    elements_.touch(lamps.off).visible = !on;
}

void showPlayed(MiniElements& elements, double width) {
    elements.touch(N::track).width = std::clamp(width, 0.0, elements.get(N::posbar).width);
}

} // namespace tovik::window
