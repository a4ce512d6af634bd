// SPDX-License-Identifier: GPL-3.0-or-later
// The symbols that buttons bear, as outlines in a square of 16. Any thread.
#pragma once

#include <cstdint>
#include <QPainter>
#include <QPainterPath>

namespace tovik::skinart {

enum class Icon : std::uint8_t {
    Previous,
    Play,
    Pause,
    Stop,
    Next,
    Open,
    Close,
    Minimise,
    MiniMode,
    Shuffle,
    Repeat,
    Crossfade,
    SkipSilence,
    Note,
    Sliders,
    List,
    Disc,
    Antenna,
    Gear,
    AddFile,
    AddFolder,
    AddLocation,
    Remove,
    Clear,
    Load,
    Save,
    Search,
    Rip,
    Cancel,
    Presets,
    Reset,
    Plus,
    Minus,
    Record,
    Clock,
    Speaker,
    Balance,
    ChevronUp,
    ChevronDown,
};

/// Made of parts, in their small unit.
[[nodiscard]] QPainterPath iconPath(Icon icon);

/// Draws a symbol `size` high round a centre. A `shadow` lies one pixel below it.
void paintIcon(QPainter& painter, Icon icon, QPointF centre, double size, QRgb colour,
               bool shadow = true);

} // namespace tovik::skinart
