// SPDX-License-Identifier: GPL-3.0-or-later
// What smaller pictures lie on, as grounds that they are cut from. Any thread.
#pragma once

#include "PictureSet.h"

namespace tovik::skinart {

/// The heights of the strips that bear the titles of the cards.
inline constexpr double kPositionHead = 14;
inline constexpr double kVolumeHead = 12;
inline constexpr double kListHead = 16;

using Ground = std::function<void(QPainter&)>;

/// The part of the display's glass that lies under an element.
[[nodiscard]] Ground paintScreenUnder(Spot spot);

/// The part of a card that lies under an element; `head` is the height of the card's title.
[[nodiscard]] Ground paintCardUnder(window::MainElement card, double head, Spot spot);

} // namespace tovik::skinart
