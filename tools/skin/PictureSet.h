// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the skin as drawings that can be rendered at any whole scale. Any thread.
#pragma once

#include "window/MainElements.h"

#include <cstddef>
#include <functional>
#include <QImage>
#include <QPainter>
#include <QSize>
#include <string>
#include <vector>

namespace tovik::skinart {

/// An element of the main window, one of those of its name.
struct Spot {
    window::MainElement name{};
    std::size_t index = 0;
};

/// One picture. The painter's origin is the picture's upper left corner, its unit a skin pixel.
struct Drawing {
    std::string name; ///< of the file, without its ending
    QSize size;       ///< in skin pixels
    std::function<void(QPainter&)> paint;
    /// The element that shows it, or the store that keeps it.
    Spot spot;
    bool shaped = false; ///< what lies outside the window's outline gets the key colour
};

using Drawings = std::vector<Drawing>;

/// Where the layout places an element. Raises 9 for an index that it lacks.
[[nodiscard]] ui::Box boxOf(Spot spot);

/// Such a box for a painter, cut to whole pixels.
[[nodiscard]] QRectF rectOf(Spot spot);

/// A drawing that fills the box of an element; `shown` is that element, `kept` where the picture
/// goes first if that is a store.
[[nodiscard]] Drawing drawingFor(std::string name, Spot shown,
                                 std::function<void(QPainter&)> paint);
[[nodiscard]] Drawing drawingFor(std::string name, Spot shown, Spot kept,
                                 std::function<void(QPainter&)> paint);

/// The colour of what is no part of a picture.
[[nodiscard]] QRgb keyPixel() noexcept;

/// The picture at that many times its size, opaque.
[[nodiscard]] QImage rendered(const Drawing& drawing, int scale);

/// The files of the skin, in the order of their families.
[[nodiscard]] Drawings skinDrawings();

/// The pictures of elements that no file of a skin gives one: bars, lamps and the equalizer's
/// ground. They belong to the window.
[[nodiscard]] Drawings windowDrawings();

} // namespace tovik::skinart
