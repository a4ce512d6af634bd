// SPDX-License-Identifier: GPL-3.0-or-later
// The outline of a window in pixels of the screen, finer than those of its skin. Interface thread.
#pragma once

#include "ui/Region.h"

#include <QImage>
#include <QRegion>

namespace tovik::ui {

/// From this alpha on a pixel counts as one of the window where nobody blends windows with what is
/// behind them: it is either shown or not.
inline constexpr int kHardEdge = 128;

/// The pixels of a premultiplied image that have at least that alpha, 1 to 255.
[[nodiscard]] QRegion seenPixels(const QImage& image, int leastAlpha);

/// Where pixels may be seen of a window that is cut along a region of skin pixels and drawn `scale`
/// times as large: a finer picture's edge may pass that of the skin by less than a skin pixel.
[[nodiscard]] QRegion roomOf(const Region& region, double scale);

/// A premultiplied image as it is to be where nobody blends it: what is hardly there is not, and
/// the rest has the colour that it would have without its edge.
[[nodiscard]] QImage hardEdged(QImage image);

} // namespace tovik::ui
