// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the preferences as a table: where each stands, what it can be set to and when
// that is felt. Any thread.
#pragma once

#include "base/ComfortTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tovik::preferences {

/// The pages in the order of their tabs.
enum class Page : std::uint8_t {
    general,
    fileTypes,
    playback,
    ripper,
    streaming,
    versionHistory,
    shortcuts,
    comfort,
};

inline constexpr std::size_t kPages = 8;

/// What can be changed. A number behind the name tells several of one name apart.
enum class Control : std::uint8_t {
    Check13,   ///< look for updates at the start
    Check9,    ///< "auto play": the splash at the start
    Check1,    ///< several instances
    Check4,    ///< on the task bar
    Check5,    ///< in the tray
    Slider3,   ///< the tray's icon
    Check3,    ///< always on top
    Check2,    ///< the volume of each track
    Check15,   ///< the volume of the whole output
    Combo3,    ///< the language
    Check16,   ///< the popup with the title
    Check18,   ///< as a notification of the desktop
    List1,     ///< the file types
    Check6,    ///< associate them at the start
    Check7,    ///< crossfade
    Slider1_0, ///< its time
    Slider1_2, ///< the time of one that the user asks for
    Check8,    ///< silence detection
    Slider1_1, ///< its threshold
    Check10,   ///< shuffle
    Check11,   ///< repeat
    Slider4,   ///< the time between pictures of a visualisation
    Combo1,    ///< the format of ripping
    Slider2,   ///< its bit rate
    Combo2,    ///< the priority of encoders
    Check12,   ///< ask for the facts of a disc
    Check14,   ///< look them up
    Label3,    ///< the folder of ripped tracks
    Label1,    ///< the folder of recorded streams
    Check17,   ///< tell messengers what plays
    Comfort_0, ///< the master of comfort; its switches follow by their numbers
};

inline constexpr std::size_t kControls = 31 + base::kComfortSwitches.size();

/// The control of a switch of comfort by its number, that of the master by 0.
constexpr Control comfortControl(std::size_t number) {
    return static_cast<Control>(static_cast<std::size_t>(Control::Comfort_0) + number);
}

/// The other way round; none for any other control.
constexpr std::optional<std::size_t> comfortNumber(Control control) {
    return control < Control::Comfort_0
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(control) -
                               static_cast<std::size_t>(Control::Comfort_0));
}

enum class ControlKind : std::uint8_t {
    check,
    slider,
    choice, ///< one entry of a list; the number is its place, or the text it
    ticks,  ///< any entries of a list
    folder,
};

/// When a change that was saved is felt.
enum class Effect : std::uint8_t {
    nextStart, ///< of the program
    nextUse,   ///< whenever it is needed next: the setting is read there
    topmost,   ///< at once, as are all that follow
    shuffle,
    repeat,
    crossfade,
    silenceSkip,
    threshold, ///< of silence, if that is skipped
    tray,
    spectrum,
    messenger,
    comfort,
    language, ///< already when it is chosen
};

struct ControlRow {
    Control control{};
    std::string_view name; ///< of the element, for languages and tests
    ControlKind kind{};
    Page page{};
    std::string_view frame; ///< it stands in; empty: on the page itself
    Effect effect{};

    // The numbers that it can be set to.
    std::int32_t least = 0;
    std::int32_t most = 1;
    std::int32_t step = 1;
};

/// All of them, in the order of their numbers, which is that of the keyboard.
[[nodiscard]] std::span<const ControlRow, kControls> controlTable() noexcept;

[[nodiscard]] const ControlRow& rowOf(Control control) noexcept;

struct PageRow {
    Page page{};
    std::string_view key; ///< of its tab
};

/// In the order of the tabs.
[[nodiscard]] std::span<const PageRow, kPages> pageTable() noexcept;

/// Holds more controls than a page has room for: it is scrolled.
inline constexpr std::string_view kSwitchFrame = "FrameComfort";

struct FrameRow {
    std::string_view name;
    Page page{};
};

/// The frames of all pages, from the top.
[[nodiscard]] std::span<const FrameRow> frameTable() noexcept;

/// The formats of ripping, as `Combo1` lists and keeps them.
inline constexpr std::array<std::string_view, 6> kFormats = {
    "Wave Audio (1411 kbps)", "MP3 CBR", "MP3 VBR", "OGG VORBIS CBR", "OGG VORBIS VBR", "WMA VBR",
};

/// The bit rate of the first format, in kbps; it is no choice.
inline constexpr std::int32_t kWaveRate = 1411;

inline constexpr std::size_t kFileTypes = 15;

/// The extensions whose files the desktop may open with the player, in the order of `List1`.
[[nodiscard]] std::span<const std::string_view, kFileTypes> fileTypes() noexcept;

} // namespace tovik::preferences
