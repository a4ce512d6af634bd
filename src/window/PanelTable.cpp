// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PanelTable.h"

namespace tovik::window {

namespace {

using N = MainElement;
using enum Show;

using Cells = std::array<Show, kPanels>;

constexpr Cells onlyMain(Show when = yes) {
    return {when, no, no, no, no};
}

constexpr Cells kEqualizerOnly = {no, yes, no, no, no};
constexpr Cells kPlaylistOnly = {no, no, yes, no, no};
constexpr Cells kRipOnly = {no, no, no, yes, no};
constexpr Cells kWhileRipping = {no, no, no, whileRipping, no};
constexpr Cells kRadioOnly = {no, no, no, no, yes};

/// A deliberate oddity: on the playlist panel these stay in force, over the list, although the
/// display below them is hidden, unless `Comfort::hidesLampsOverList` hides them, too.
constexpr PanelRow mainAndPlaylist(N name, Show when) {
    return {.name = name, .on = {when, no, when, no, no}, .overList = true};
}

constexpr auto kRows = std::to_array<PanelRow>({
    {N::qpl_but, onlyMain()},
    {N::ShuffleBT, onlyMain()},
    {N::LoopBT, onlyMain()},
    {N::CfdBT, onlyMain()},
    {N::sldBT, onlyMain()},
    {N::cancelrip, kWhileRipping},
    {N::ripbar, kWhileRipping},
    {N::ripfill, kWhileRipping},
    {N::riplbl, kWhileRipping},
    {N::shwchange, onlyMain()},
    {N::stopNote, onlyMain(whileStopping)},
    {N::notice_img, onlyMain()},
    {N::List1, onlyMain()},
    {N::resetbt, kEqualizerOnly},
    {N::adddirIMG, kPlaylistOnly},
    {N::addfileIMG, kPlaylistOnly},
    {N::addlocIMG, kPlaylistOnly},
    {N::delIMG, kPlaylistOnly},
    {N::clrIMG, kPlaylistOnly},
    {N::loadImg, kPlaylistOnly},
    {N::SaveImg, kPlaylistOnly},
    {N::srchIMG, kPlaylistOnly},
    {N::musicSearchTxt, kPlaylistOnly},
    mainAndPlaylist(N::CFD, withCrossfade),
    mainAndPlaylist(N::CFD2, withoutCrossfade),
    mainAndPlaylist(N::loopImg, withLoop),
    mainAndPlaylist(N::LoopImg2, withoutLoop),
    mainAndPlaylist(N::Shuffle, withShuffle),
    {N::ShuffleDown, onlyMain(withoutShuffle)},
    {N::Sld, onlyMain(withSkip)},
    {N::sld2, onlyMain(withoutSkip)},
    {N::ScreenIMG, onlyMain()},
    {N::poswin, onlyMain()},
    {N::balwin, onlyMain()},
    {N::volwin, onlyMain()},
    {N::fxWin, onlyMain(whileFolded)},
    {N::infoWin, onlyMain(whileFolded)},
    {N::Picture1, onlyMain()},
    {N::Line1, onlyMain()},
    {N::Line2, onlyMain()},
    {N::Line3, onlyMain()},
    {N::Line4, onlyMain()},
    {N::Line5, onlyMain()},
    {N::posbar, onlyMain()},
    {N::track, onlyMain()},
    {N::volbar, onlyMain()},
    {N::volbarIMG, onlyMain()},
    {N::Image3, kEqualizerOnly},
    {N::stdSS, kPlaylistOnly},
    {N::lstTracks, kRipOnly},
    // A deliberate oddity: it goes at the tick of `Timer6` after its panel went.
    {N::RadioLst, {untilRadioWent, untilRadioWent, untilRadioWent, untilRadioWent, yes}},
    {N::slDRV, kRipOnly},
    {N::cmbCDDrives, kRipOnly},
    {N::Picture6, kEqualizerOnly},
    {N::eq_sld, kEqualizerOnly},
    {N::presetbt, kEqualizerOnly},
    {N::eq_val, kEqualizerOnly},
    {N::eqHeading, kEqualizerOnly},
    {N::EQ_on, {no, withEqualizer, no, no, no}},
    {N::EQ_off, {no, withoutEqualizer, no, no, no}},
    {N::ripperbt, kRipOnly},
    {N::musicinfo_img, onlyMain()},
    {N::mono_img, onlyMain()},
    {N::Stereo_img, onlyMain()},
    {N::timed, onlyMain(countingDown), 0, 1},
    {N::timed, onlyMain(), 1},
    {N::songname, onlyMain()},
    {N::lbltag, onlyMain(withoutRadio)},
    {N::lblPos, onlyMain(), 0, 3},
    {N::lblPos, onlyMain(whileFolded), 3, 1},
    {N::lblPos, onlyMain(), 4},
    {N::balbar, onlyMain()},
    {N::lblinfo, onlyMain(withoutRadio)},
    {N::Image1, kRadioOnly, 0, 3},
    // The first of the two starts a recording, the second, which then takes its place, ends it.
    {N::Image1, {no, no, no, no, whileNotRecording}, 3, 1},
    {N::Image1, {no, no, no, no, whileRecording}, 4, 1},
    {N::lblRDinfo, onlyMain(withRadio)},
});

/// The looks under the pointer stand in reverse order.
constexpr auto kTabs = std::to_array<Tab>({
    {N::mainbt, Panel::main, 0, 6, 17},
    {N::eqbt, Panel::equalizer, 1, 7, 16},
    {N::plbt, Panel::playlist, 2, 8, 15},
    {N::ripbt, Panel::rip, 3, 9, 14},
    {N::irtbt, Panel::radio, 4, 10, 13},
    {N::prebt, Panel::preferences, 5, 11, 12},
});

bool shown(Show when, const player::PlayerState& state) {
    switch (when) {
    case Show::yes:
        return true;
    case Show::no:
        return false;
    case Show::withCrossfade:
        return state.CrossfadeOn;
    case Show::withoutCrossfade:
        return !state.CrossfadeOn;
    case Show::withLoop:
        return state.RepeatOn;
    case Show::withoutLoop:
        return !state.RepeatOn;
    case Show::withShuffle:
        return state.ShuffleOn;
    case Show::withoutShuffle:
        return !state.ShuffleOn;
    case Show::withSkip:
        return state.SilenceSkipOn;
    case Show::withoutSkip:
        return !state.SilenceSkipOn;
    case Show::whileRipping:
        return state.RipRunning;
    case Show::withEqualizer:
        return state.EqualizerOn;
    case Show::withoutEqualizer:
        return !state.EqualizerOn;
    case Show::withRadio:
        return state.RadioMode;
    case Show::withoutRadio:
        return !state.RadioMode;
    case Show::countingDown:
        return state.TimeDisplayMode != 0 && !state.RadioMode;
    case Show::whileStopping:
        return state.StopAfterCurrent;
    case Show::whileRecording:
        return state.StreamRecording;
    case Show::whileNotRecording:
        return !state.StreamRecording;
    case Show::whileFolded:
        return !state.QuickListOpen;
    case Show::untilRadioWent:
        return state.RadioPanelActive && !state.comfort.hidesStationsAtOnce;
    }
    return true;
}

void applyRow(const PanelRow& row, MainElements& elements, const player::PlayerState& state) {
    const auto panel = static_cast<std::size_t>(state.CurrentPanel) - 1;
    if (panel >= kPanels) {
        return;
    }
    const bool hidden = row.overList && static_cast<Panel>(state.CurrentPanel) == Panel::playlist &&
                        state.comfort.hidesLampsOverList;
    const std::size_t last = row.count == 0 ? elements.count(row.name) : row.first + row.count;
    for (std::size_t i = row.first; i < last; ++i) {
        ui::Element& element = elements.touch(row.name, i);
        element.visible = !hidden && shown(row.on.at(panel), state);
    }
}

} // namespace

void applyPanel(MainElements& elements, const player::PlayerState& state) {
    for (const PanelRow& row : kRows) {
        applyRow(row, elements, state);
    }
}

void applyPanel(MainElements& elements, const player::PlayerState& state, MainElement name) {
    for (const PanelRow& row : kRows) {
        if (row.name == name) {
            applyRow(row, elements, state);
        }
    }
}

std::span<const PanelRow> panelTable() noexcept {
    return kRows;
}

std::span<const Tab> tabs() noexcept {
    return kTabs;
}

} // namespace tovik::window
