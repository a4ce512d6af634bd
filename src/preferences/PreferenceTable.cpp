// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/PreferenceTable.h"

#include "playlist/AudioExtensions.h"

#include <algorithm>

namespace tovik::preferences {

namespace {

using C = Control;
using K = ControlKind;
using P = Page;
using E = Effect;

constexpr auto kSingle = std::to_array<ControlRow>({
    {C::Check13, "Check13", K::check, P::general, "Frame6", E::nextStart},
    {C::Check9, "Check9", K::check, P::general, "Frame6", E::nextStart},
    {C::Check1, "Check1", K::check, P::general, "Frame6", E::nextUse},
    {C::Check4, "Check4", K::check, P::general, "Frame2", E::nextStart},
    {C::Check5, "Check5", K::check, P::general, "Frame2", E::tray},
    {C::Slider3, "Slider3", K::slider, P::general, "Frame2", E::tray, 1, 4},
    {C::Check3, "Check3", K::check, P::general, "Frame7", E::topmost},
    {C::Check2, "Check2", K::check, P::general, "Frame9", E::nextUse},
    {C::Check15, "Check15", K::check, P::general, "Frame9", E::nextUse},
    {C::Combo3, "Combo3", K::choice, P::general, "Frame11", E::language},
    {C::Check16, "Check16", K::check, P::general, "Frame12", E::nextUse},
    {C::Check18, "Check18", K::check, P::general, "Frame12", E::nextUse},
    {C::List1, "List1", K::ticks, P::fileTypes, "", E::nextUse},
    {C::Check6, "Check6", K::check, P::fileTypes, "", E::nextStart},
    {C::Check7, "Check7", K::check, P::playback, "PlaybackFrm", E::crossfade},
    {C::Slider1_0, "Slider1_0", K::slider, P::playback, "PlaybackFrm", E::nextUse, 0, 30},
    {C::Slider1_2, "Slider1_2", K::slider, P::playback, "PlaybackFrm", E::nextUse, 0, 30},
    {C::Check8, "Check8", K::check, P::playback, "PlaybackFrm", E::silenceSkip},
    {C::Slider1_1, "Slider1_1", K::slider, P::playback, "PlaybackFrm", E::threshold, 0, 100},
    {C::Check10, "Check10", K::check, P::playback, "PlaybackFrm", E::shuffle},
    {C::Check11, "Check11", K::check, P::playback, "PlaybackFrm", E::repeat},
    {C::Slider4, "Slider4", K::slider, P::playback, "Frame13", E::spectrum, 10, 200},
    {C::Combo1, "Combo1", K::choice, P::ripper, "RipperFrm", E::nextUse, 0, kFormats.size() - 1},
    {C::Slider2, "Slider2", K::slider, P::ripper, "RipperFrm", E::nextUse, 32, 320, 16},
    {C::Combo2, "Combo2", K::choice, P::ripper, "Frame3", E::nextUse, 0, 4},
    {C::Check12, "Check12", K::check, P::ripper, "Frame5", E::nextUse},
    {C::Check14, "Check14", K::check, P::ripper, "Frame5", E::nextUse},
    {C::Label3, "Label3", K::folder, P::ripper, "Frame4", E::nextUse},
    {C::Label1, "Label1", K::folder, P::streaming, "Frame10", E::nextUse},
    {C::Check17, "Check17", K::check, P::streaming, "StrmFrm", E::messenger},
    {C::Comfort_0, "Comfort_0", K::check, P::comfort, "ComfortFrm", E::comfort},
});

constexpr auto kComfortNames = std::to_array<std::string_view>(
    {"Comfort_1",  "Comfort_2",  "Comfort_3",  "Comfort_4",  "Comfort_5",  "Comfort_6",
     "Comfort_7",  "Comfort_8",  "Comfort_9",  "Comfort_10", "Comfort_11", "Comfort_12",
     "Comfort_13", "Comfort_14", "Comfort_15", "Comfort_16", "Comfort_17", "Comfort_18",
     "Comfort_19", "Comfort_20", "Comfort_21", "Comfort_22"});

constexpr auto kTable = [] {
    std::array<ControlRow, kSingle.size() + kComfortNames.size()> rows{};
    std::ranges::copy(kSingle, rows.begin());
    for (std::size_t i = 0; i < kComfortNames.size(); ++i) {
        rows.at(kSingle.size() +
                i) = {comfortControl(i + 1), kComfortNames.at(i), K::check, P::comfort,
                      kSwitchFrame,          E::comfort};
    }
    return rows;
}();

constexpr bool inOrder() {
    for (std::size_t i = 0; i < kTable.size(); ++i) {
        if (static_cast<std::size_t>(kTable.at(i).control) != i) {
            return false;
        }
    }
    return kTable.size() == kControls;
}

static_assert(inOrder());

constexpr std::array<PageRow, kPages> kPageTable = {{
    {P::general, "GN"},
    {P::fileTypes, "FTY"},
    {P::playback, "PLB"},
    {P::ripper, "RP"},
    {P::streaming, "STR"},
    {P::versionHistory, "VH"},
    {P::shortcuts, "SC"},
    {P::comfort, "CMF"},
}};

constexpr auto kFrameTable = std::to_array<FrameRow>({
    {"Frame6", P::general},
    {"Frame2", P::general},
    {"Frame7", P::general},
    {"Frame9", P::general},
    {"Frame11", P::general},
    {"Frame12", P::general},
    {"PlaybackFrm", P::playback},
    {"Frame13", P::playback},
    {"RipperFrm", P::ripper},
    {"Frame3", P::ripper},
    {"Frame5", P::ripper},
    {"Frame4", P::ripper},
    {"Frame10", P::streaming},
    {"StrmFrm", P::streaming},
    {"ComfortFrm", P::comfort},
    {kSwitchFrame, P::comfort},
});

/// A track of a disc is no file that anything could be associated with.
constexpr auto kTypes = [] {
    std::array<std::string_view, kFileTypes> types{};
    std::size_t count = 0;
    for (const std::string_view extension : playlist::AudioExtensions) {
        if (extension != "cda") {
            types.at(count++) = extension;
        }
    }
    return types;
}();

static_assert(!kTypes.back().empty());

} // namespace

std::span<const ControlRow, kControls> controlTable() noexcept {
    return kTable;
}

const ControlRow& rowOf(Control control) noexcept {
    return kTable[static_cast<std::size_t>(control)]; // NOLINT: an enumerator is a place in it
}

std::span<const PageRow, kPages> pageTable() noexcept {
    return kPageTable;
}

std::span<const FrameRow> frameTable() noexcept {
    return kFrameTable;
}

std::span<const std::string_view, kFileTypes> fileTypes() noexcept {
    return kTypes;
}

} // namespace tovik::preferences
