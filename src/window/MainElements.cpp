// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainElements.h"

#include "window/MainRows.h"

#include <array>

namespace tovik::window {

namespace {

using namespace rows;

constexpr auto kLayout = std::to_array<Place>({
    // The window, its areas and lines.
    area(N::mainIMG, {0, 0, 470, 312}, kBody),
    area(N::ScreenIMG, {19, 45, 263, 104}, kScreen),
    area(N::infoWin, {286, 45, 166, 104}, kPanel),
    area(N::fxWin, {286, 153, 166, 100}, kPanel),
    area(N::poswin, {20, 153, 262, 41}, kPanel),
    area(N::volwin, {20, 198, 140, 40}, kPanel),
    area(N::balwin, {164, 198, 118, 40}, kPanel),
    area(N::Image3, kWholePanel, kPanel, false),
    area(N::Line1, {289, 72, 160, 1}, kLine),
    area(N::Line2, {289, 88, 160, 1}, kLine),
    area(N::Line3, {289, 104, 160, 1}, kLine),
    area(N::Line4, {289, 120, 160, 1}, kLine),
    area(N::Line5, {289, 136, 160, 1}, kLine),
    // Headings.
    label(N::lblPos, 0, {23, 154, 200, 14}, "Position", kInk),
    label(N::lblPos, 1, {23, 197, 130, 14}, "Volume", kInk),
    label(N::lblPos, 2, {167, 197, 110, 14}, "Balance", kInk),
    label(N::lblPos, 3, {289, 46, 160, 12}, "Track info", kInk),
    label(N::lblPos, 4, {289, 154, 138, 14}, "Quick playlist", kInk),
    {.name = N::Label2,
     .kind = Label,
     .box = {252, 277, 36, 13},
     .textHeight = 11,
     .caption = "Tovik",
     .textColour = kAmber},
    // The fields of the track.
    label(N::lbltag, 0, {289, 58, 43, 14}, "Artist", kBlack),
    label(N::lbltag, 1, {289, 74, 43, 14}, "Title", kBlack),
    label(N::lbltag, 2, {289, 90, 43, 14}, "Album", kBlack),
    label(N::lbltag, 3, {289, 106, 43, 14}, "Year", kBlack),
    label(N::lbltag, 4, {289, 122, 43, 14}, "Genre", kBlack),
    {.name = N::lblinfo,
     .count = 5,
     .kind = Label,
     .box = {332, 58, 118, 14},
     .stepTop = 16,
     .textColour = kInk},
    {.name = N::lblRDinfo,
     .kind = Label,
     .box = {289, 58, 160, 80},
     .visible = false,
     .wraps = true,
     .textColour = kInk},
    drawn(N::songname, {127, 60, 150, 10}, "", kWhite, 12),
    drawn(N::Picture1, {112, 74, 166, 24}, "", kWhite),
    drawn(N::mono_img, {150, 100, 32, 10}, "Mono", kDim, 9),
    drawn(N::Stereo_img, {185, 100, 38, 10}, "Stereo", kDim, 9),
    drawn(N::musicinfo_img, {150, 110, 120, 10}, "", kWhite, 9),
    drawn(N::shwchange, {150, 120, 60, 10}, "", kWhite, 9),
    {.name = N::shwchange,
     .first = 1,
     .box = {213, 120, 60, 10},
     .textHeight = 9,
     .textColour = kWhite},
    {.name = N::stopNote,
     .box = {145, 130, 132, 10},
     .visible = false,
     .textHeight = 9,
     .caption = "Stop after current",
     .textColour = kWhite},
    drawn(N::notice_img, {127, 138, 150, 10}, "", kWhite, 9),
    digit(0, 20, "-", false),
    digit(1, 32, "0", true),
    digit(2, 46.4, "0", true),
    digit(3, 60.8, ":", true),
    digit(4, 66, "0", true),
    digit(5, 80.4, "0", true),
    {.name = N::eq_val,
     .kind = Label,
     .box = {240, 46, 190, 13},
     .visible = false,
     .textColour = kInk},
    label(N::eqHeading, 0, {23, 46, 200, 13}, "Equalizer", kInk, false),
    {.name = N::slDRV,
     .kind = Label,
     .box = {22, 48, 84, 16},
     .visible = false,
     .textColour = kWhite},
    // Bars.
    {.name = N::posbar, .kind = Bar, .box = {26, 171, 250, 12}, .backColour = kGroove},
    {.name = N::track, .kind = Button, .box = {26, 171, 8, 12}, .backColour = kInk},
    {.name = N::volbar, .kind = Bar, .box = {26, 211, 128, 24}, .backColour = kGroove},
    {.name = N::volbarIMG,
     .kind = Bar,
     .box = {26, 211, 128, 0},
     .checked = true,
     .textColour = kAmber,
     .backColour = kGroove},
    {.name = N::balbar,
     .count = 9,
     .kind = Bar,
     .box = {172, 216, 10, 14},
     .stepLeft = 12,
     .textColour = kAmber,
     .backColour = kGroove},
    {.name = N::Picture6,
     .count = 11,
     .kind = Bar,
     .box = {40, 80, 13, 129},
     .stepLeft = 32,
     .visible = false,
     .backColour = kGroove},
    // The two scales: nothing stands for them while they have no picture.
    {.name = N::Picture6,
     .first = 11,
     .count = 2,
     .box = {392, 80, 13, 129},
     .stepLeft = 32,
     .visible = false},
    {.name = N::eq_sld,
     .count = 11,
     .kind = Slider,
     .box = {40, 80, 13, 129},
     .stepLeft = 32,
     .visible = false,
     .barHeight = 9,
     .textColour = kFace,
     .backColour = kGroove},
    // Lists and the other controls.
    {.name = N::List1,
     .kind = Control,
     .box = {288, 169, 161, 80},
     .textColour = kWhite,
     .backColour = kInk},
    control(N::stdSS, kWholePanel),
    control(N::lstTracks, {20, 70, 432, 165}),
    control(N::RadioLst, kWholePanel),
    control(N::musicSearchTxt, {320, 242, 130, 20}),
    control(N::cmbCDDrives, {110, 45, 342, 22}),
    // Not hidden, or it could not hold the focus; it draws nothing.
    {.name = N::Text4, .kind = Control, .box = {0, 0, 1, 1}},
    // Transport.
    button(N::backupIMG, transport(28), kPrevious),
    pressed(N::backdownIMG, transport(28), kPrevious),
    button(N::playup, transport(60), kPlay),
    pressed(N::playdown, transport(60), kPlay),
    button(N::pauseup, transport(92), kPause),
    pressed(N::pausedown, transport(92), kPause),
    button(N::stopup, transport(124), kStop),
    pressed(N::stopdown, transport(124), kStop),
    button(N::nextup, transport(156), kNext),
    pressed(N::nextdown, transport(156), kNext),
    button(N::fileup, transport(202), kOpen),
    pressed(N::filedown, transport(202), kOpen),
    // The window's own buttons.
    button(N::iconIMG, {19, 14, 16, 16}, "T"),
    button(N::minmodeUP, corner(385), kSmall),
    pressed(N::minmodeDown, corner(385), kSmall),
    button(N::minon, corner(405), kMinimise),
    pressed(N::minoff, corner(405), kMinimise),
    button(N::closeup, corner(425), kClose),
    pressed(N::closedown, corner(425), kClose),
    // Modes and the fold of the quick list.
    button(N::ShuffleBT, mode(22), kShuffle),
    button(N::LoopBT, mode(52), kLoop),
    button(N::CfdBT, mode(82), kCrossfade),
    button(N::sldBT, mode(112), kSkip),
    button(N::qpl_but, {430, 156, 14, 10}, "\u25B4"),
    // The equalizer's buttons.
    {.name = N::EQ_on,
     .kind = Button,
     .box = wideButton(22),
     .visible = false,
     .checked = true,
     .caption = "EQ on",
     .textColour = kWhite,
     .backColour = kFaceSelected},
    button(N::EQ_off, wideButton(22), "EQ off", false),
    button(N::presetbt, wideButton(82), "Presets", false),
    button(N::resetbt, wideButton(142), "Reset", false),
    // The playlist's buttons.
    button(N::addfileIMG, listButton(22), "File", false),
    button(N::adddirIMG, listButton(62), "Folder", false),
    button(N::addlocIMG, listButton(102), "URL", false),
    button(N::delIMG, listButton(142), "Delete", false),
    button(N::clrIMG, listButton(182), "Clear", false),
    button(N::loadImg, listButton(222), "Load", false),
    button(N::SaveImg, listButton(262), "Save", false),
    area(N::srchIMG, {300, 242, 18, 20}, kFace, false),
    // The ripper's and the radio's buttons.
    button(N::ripperbt, wideButton(22), "Rip", false),
    button(N::cancelrip, wideButton(22), "Cancel", false),
    {.name = N::ripbar,
     .kind = Bar,
     .box = {90, 242, 362, 8},
     .visible = false,
     .backColour = kGroove},
    {.name = N::ripfill,
     .kind = Bar,
     .box = {90, 242, 0, 8},
     .visible = false,
     .checked = true,
     .textColour = kAmber,
     .backColour = kGroove},
    {.name = N::riplbl,
     .kind = Label,
     .box = {90, 252, 362, 13},
     .visible = false,
     .textColour = kWhite},
    {.name = N::Image1,
     .count = 4,
     .kind = Button,
     .box = {22, 242, 46, 22},
     .stepLeft = 50,
     .visible = false,
     .textColour = kWhite,
     .backColour = kFace},
    {.name = N::Image1,
     .first = 4,
     .kind = Button,
     .box = {172, 242, 46, 22},
     .visible = false,
     .textColour = kWhite,
     .backColour = kFace},
    // Indicators, over the list on the playlist's panel.
    indicator(N::Shuffle, 97, 51, kShuffle, true),
    indicator(N::ShuffleDown, 96, 50, kShuffle, false),
    indicator(N::loopImg, 109, 51, kLoop, true),
    indicator(N::LoopImg2, 111, 51, kLoop, false),
    indicator(N::CFD, 97, 61, kCrossfade, true),
    indicator(N::CFD2, 97, 61, kCrossfade, false),
    indicator(N::Sld, 111, 61, kSkip, true),
    indicator(N::sld2, 111, 61, kSkip, false),
    // Tabs.
    button(N::mainbt, tab(122), "\u266A"),
    button(N::eqbt, tab(146), "\U0001F39A"),
    button(N::plbt, tab(170), "\u2630"),
    button(N::ripbt, tab(194), "\U0001F4BF"),
    button(N::irtbt, tab(218), "\U0001F4E1"),
    button(N::prebt, tab(242), "\u2699"),
    // Never shown.
    words(N::Label3, 0, "Volume [x]%"),
    words(N::Label4, 0, "Left [x]%"),
    words(N::Label4, 1, "Right [x]%"),
    words(N::Label4, 2, "Centre"),
    {.name = N::Label4, .first = 3, .count = 6, .visible = false},
    store(N::tmp, 17),
    store(N::Image2, 18),
    store(N::Image4),
    store(N::Image5),
    store(N::Image6, 8),
    store(N::Image8, 4),
    store(N::Digit, 10),
    store(N::qpl_exp),
    store(N::qpl_col),
    store(N::baron),
    store(N::baroff),
    store(N::balcnt),
    store(N::textImg),
    store(N::textImg2),
    store(N::songname2),
    store(N::Picture2),
    store(N::Picture3),
    store(N::Picture7),
});

/// Each name has rows, and each of its indices exactly one.
constexpr bool complete() {
    for (int name = 0; name <= static_cast<int>(N::Picture7); ++name) {
        std::size_t expected = 0;
        for (const Place& place : kLayout) {
            if (static_cast<int>(place.name) == name) {
                if (place.first != expected) {
                    return false;
                }
                expected += place.count;
            }
        }
        if (expected == 0) {
            return false;
        }
    }
    return true;
}

static_assert(complete());

} // namespace

std::span<const ui::ElementPlace<MainElement>> mainLayout() noexcept {
    return kLayout;
}

} // namespace tovik::window
