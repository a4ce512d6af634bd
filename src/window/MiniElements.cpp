// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniElements.h"

#include "window/MainRows.h"

#include <algorithm>
#include <array>

namespace tovik::window {

namespace {

using rows::kAmber;
using rows::kDim;
using rows::kFace;
using rows::kGroove;
using rows::kWhite;
using ui::ElementKind;
using N = MiniElement;
using M = MainElement;
using Place = ui::ElementPlace<MiniElement>;

constexpr Place field(N name, ui::Box box, std::string_view caption) {
    return {.name = name, .box = box, .textHeight = 9, .caption = caption, .textColour = kWhite};
}

constexpr Place lamp(N name, double left, double top, std::string_view caption, bool on) {
    return {.name = name,
            .box = {left, top, 12, 9},
            .visible = !on,
            .textHeight = 9,
            .caption = caption,
            .textColour = on ? kAmber : kDim};
}

constexpr Place corner(std::size_t index, double left, double top, std::string_view caption) {
    return {.name = N::Image1,
            .first = index,
            .kind = ElementKind::Button,
            .box = {left, top, 10, 10},
            .caption = caption,
            .textColour = kWhite,
            .backColour = kFace};
}

constexpr Place button(std::size_t index, std::string_view caption) {
    return {.name = N::Image4,
            .first = index,
            .kind = ElementKind::Button,
            .box = {40 + 12 * static_cast<double>(index), 86, 12, 12},
            .caption = caption,
            .textColour = kWhite,
            .backColour = kFace};
}

/// The cell of a digit is four pixels wider than the way to the next one: 14.4 by 17 on the main
/// window, and here only as much of it is drawn.
constexpr double kDigitPitch = 10.4;

constexpr Place digit(std::size_t index, std::string_view caption, bool visible = true) {
    return {.name = N::timed,
            .first = index,
            .box = {40 + kDigitPitch * static_cast<double>(index), 36, 10, 15},
            .visible = visible,
            .textHeight = 15,
            .caption = caption,
            .textColour = kWhite};
}

constexpr Place store(N name, std::size_t count = 1) {
    return {.name = name, .count = count, .visible = false};
}

constexpr auto kLayout = std::to_array<Place>({
    {.name = N::picBackground, .box = {0, 0, 160, 125}, .backColour = rows::kBody},
    field(N::songname, {40, 12, 112, 10}, ""),
    {.name = N::posbar, .kind = ElementKind::Bar, .box = {40, 26, 100, 6}, .backColour = kGroove},
    {.name = N::track,
     .kind = ElementKind::Bar,
     .box = {40, 26, 0, 6},
     .checked = true,
     .textColour = kAmber,
     .backColour = kGroove},
    digit(0, "-", false),
    digit(1, "0"),
    digit(2, "0"),
    digit(3, ":"),
    digit(4, "0"),
    digit(5, "0"),
    field(N::musicinfo_img, {104, 40, 48, 10}, ""),
    field(N::mono_img, {40, 56, 32, 10}, "Mono"),
    field(N::Stereo_img, {75, 56, 36, 10}, "Stereo"),
    field(N::Picture1, {40, 68, 70, 16}, ""),
    button(0, rows::kPrevious),
    button(1, rows::kPlay),
    button(2, rows::kPause),
    button(3, rows::kStop),
    button(4, rows::kNext),
    button(5, rows::kOpen),
    // Half pixels come from a unit that is a fifteenth of one.
    lamp(N::Shuffle, 37, 100, rows::kShuffle, true),
    lamp(N::ShuffleDown, 37, 100, rows::kShuffle, false),
    lamp(N::loopImg, 49, 99.6, rows::kLoop, true),
    lamp(N::LoopImg2, 53, 99.6, rows::kLoop, false),
    lamp(N::CFD, 65, 101.3, rows::kCrossfade, true),
    lamp(N::CFD2, 65, 101.3, rows::kCrossfade, false),
    lamp(N::Sld, 79, 101, rows::kSkip, true),
    lamp(N::sld2, 79, 101, rows::kSkip, false),
    {.name = N::volbar,
     .kind = ElementKind::Slider,
     .box = {112, 60, 36, 59},
     .barHeight = 9,
     .textColour = kFace,
     .backColour = kGroove},
    field(N::shwchange, {40, 112, 60, 10}, ""),
    corner(0, 22, 48, rows::kSmall),
    corner(1, 20, 60, rows::kMinimise),
    corner(2, 22, 72, rows::kClose),
    // Never shown.
    store(N::Image2, 3),
    store(N::tmp, 3),
    store(N::Digit, 10),
    store(N::songname2),
    store(N::Picture2),
    store(N::Picture3),
});

/// A lamp and the button of its mode.
constexpr MiniTwin shown(N mini, M main) {
    return {.mini = mini, .main = main, .picture = true};
}

constexpr auto kTwins = std::to_array<MiniTwin>({
    {N::songname, 0, M::songname, 0},
    {N::posbar, 0, M::posbar, 0},
    {N::track, 0, M::posbar, 0},
    {N::timed, 1, M::timed, 1},
    {N::musicinfo_img, 0, M::musicinfo_img, 0},
    {N::mono_img, 0, M::mono_img, 0},
    {N::Stereo_img, 0, M::Stereo_img, 0},
    {N::Picture1, 0, M::Picture1, 0},
    {N::Image4, 0, M::backupIMG, 0},
    {N::Image4, 1, M::playup, 0},
    {N::Image4, 2, M::pauseup, 0},
    {N::Image4, 3, M::stopup, 0},
    {N::Image4, 4, M::nextup, 0},
    {N::Image4, 5, M::fileup, 0},
    shown(N::Shuffle, M::Shuffle),
    shown(N::ShuffleDown, M::ShuffleDown),
    shown(N::loopImg, M::loopImg),
    shown(N::LoopImg2, M::LoopImg2),
    shown(N::CFD, M::CFD),
    shown(N::CFD2, M::CFD2),
    shown(N::Sld, M::Sld),
    shown(N::sld2, M::sld2),
    {N::volbar, 0, M::volbar, 0},
    {N::shwchange, 0, M::shwchange, 0},
    {N::Image1, 0, M::minmodeUP, 0},
    {N::Image1, 1, M::minon, 0},
    {N::Image1, 2, M::closeup, 0},
});

} // namespace

std::span<const ui::ElementPlace<MiniElement>> miniLayout() noexcept {
    return kLayout;
}

std::span<const MiniTwin> miniTwins() noexcept {
    return kTwins;
}

std::optional<ui::ElementAddress> mainTwinOf(ui::ElementAddress mini) noexcept {
    const auto* const twin = std::ranges::find_if(kTwins, [mini](const MiniTwin& row) {
        return ui::addressOf(row.mini, row.miniIndex) == mini;
    });
    return twin == kTwins.end() ? std::nullopt
                                : std::optional(ui::addressOf(twin->main, twin->mainIndex));
}

} // namespace tovik::window
