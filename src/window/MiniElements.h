// SPDX-License-Identifier: GPL-3.0-or-later
// The mini window `frmMiniMode`: what its elements are called, where each one stands, and which of
// the main window's means the same. Any thread.
#pragma once

#include "ui/ElementTable.h"
#include "window/MainElements.h"

#include <cstdint>
#include <optional>
#include <span>

namespace tovik::window {

enum class MiniElement : std::uint16_t {
    picBackground, ///< the window; its outline is that of its picture
    songname,
    posbar,
    track, ///< the part of the position bar that was played
    timed, ///< 6: sign, two digits, colon, two digits
    musicinfo_img,
    mono_img,
    Stereo_img,
    Picture1, ///< where the spectrum is drawn
    Image4,   ///< 6: previous, play, pause, stop, next, open
    Shuffle,  ///< the four indicators, each with its dim twin
    ShuffleDown,
    loopImg,
    LoopImg2,
    CFD,
    CFD2,
    Sld,
    sld2,
    volbar,
    shwchange, ///< the volume as words
    Image1,    ///< 3: back to the main window, hide to the tray, close
    // Never shown.
    Image2, ///< 3: the faces of `Image1` under the mouse
    tmp,    ///< 3: their own faces
    Digit,  ///< 10
    songname2,
    Picture2, ///< the thumb of the volume
    Picture3, ///< the bar below it
};

using MiniElements = ui::ElementTable<MiniElement>;

/// Elements of one name from index `first` on stand at the same place in both windows' sense: what
/// one of them tells, is called and does is that of the main window's.
struct MiniTwin {
    MiniElement mini{};
    std::size_t miniIndex = 0;
    MainElement main{};
    std::size_t mainIndex = 0;
    bool picture = false; ///< and it shows the same picture
};

/// The layout, rearmost first; the first row is the window itself. Modes are off in it.
[[nodiscard]] std::span<const ui::ElementPlace<MiniElement>> miniLayout() noexcept;

[[nodiscard]] std::span<const MiniTwin> miniTwins() noexcept;

/// The element of the main window that means the same.
[[nodiscard]] std::optional<ui::ElementAddress> mainTwinOf(ui::ElementAddress mini) noexcept;

} // namespace tovik::window
