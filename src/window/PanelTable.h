// SPDX-License-Identifier: GPL-3.0-or-later
// Which element shows on which of the five panels of the main window. Tables: any thread; what
// works on elements: interface thread.
#pragma once

#include "player/PlayerState.h"
#include "window/MainElements.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::window {

/// The panels as the state counts them; 6 is the preferences dialog, opened from its tab.
enum class Panel : std::int16_t {
    main = 1,
    equalizer,
    playlist,
    rip,
    radio,
    preferences,
};

inline constexpr std::size_t kPanels = 5;

/// When an element is visible on a panel.
enum class Show : std::uint8_t {
    yes,
    no,
    withCrossfade,
    withoutCrossfade,
    withLoop,
    withoutLoop,
    withShuffle,
    withoutShuffle,
    withSkip, ///< of silence
    withoutSkip,
    whileRipping,
    withEqualizer,
    withoutEqualizer,
    withRadio, ///< a station is the current source
    withoutRadio,
    countingDown,
    whileStopping,  ///< after the track that plays
    whileRecording, ///< of a station
    whileNotRecording,
    whileFolded, ///< the quick list
    /// As long as the state still has the radio's panel as the shown one; never with
    /// `Comfort::hidesStationsAtOnce`.
    untilRadioWent,
};

struct PanelRow {
    MainElement name{};
    std::array<Show, kPanels> on{}; ///< by panel
    std::size_t first = 0;
    std::size_t count = 0; ///< 0: all from `first` on
    bool overList = false; ///< not on the playlist panel where `Comfort::hidesLampsOverList` is on
};

/// In the order in which they are applied. What is in no row is visible on all panels, but for the
/// two faces of a button that is pressed (`MainInput`). Nobody else shows or hides an element.
[[nodiscard]] std::span<const PanelRow> panelTable() noexcept;

/// Gives the elements of all rows the visibility that they have on the current panel. Nothing while
/// the preferences are open.
void applyPanel(MainElements& elements, const player::PlayerState& state);

/// The same for the elements of one name.
void applyPanel(MainElements& elements, const player::PlayerState& state, MainElement name);

/// A tab and the places of its three looks among the stored pictures.
struct Tab {
    MainElement name{};
    Panel panel{};
    std::size_t up = 0; ///< these three in `Image2`
    std::size_t down = 0;
    std::size_t over = 0;
};

[[nodiscard]] std::span<const Tab> tabs() noexcept;

} // namespace tovik::window
