// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the skin as drawings that can be rendered at any whole scale. Any thread.
#pragma once

#include "window/MainElements.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QSize>
#include <string>
#include <vector>

namespace tovik::skinart {

/// An element of the main window, one of those of its name.
struct Spot {
    window::MainElement name{};
    std::size_t index = 0;
};

/// What of a picture gets the key colour, because it is no part of it.
enum class Cut : std::uint8_t {
    Nothing,
    Outside, ///< what lies outside the window's outline
    Ground,  ///< what its drawing leaves free: another ground shows there as well
};

/// One picture. The painter's origin is the picture's upper left corner, its unit a skin pixel.
struct Drawing {
    std::string name; ///< of the file, without its ending
    QSize size;       ///< in skin pixels
    std::function<void(QPainter&)> paint;
    /// The element that shows it, or the store that keeps it; of the main window's pictures.
    Spot spot;
    Cut cut = Cut::Nothing;
    /// What a drawing that is cut from its ground lies on; its smooth edges are mixed with that.
    std::function<void(QPainter&)> ground = nullptr;
    /// Of `Cut::Outside`: the outline of a window other than the main one.
    QPainterPath (*outline)() = nullptr;
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

/// The same drawing, cut from the ground that it lies on.
[[nodiscard]] Drawing cutFrom(std::function<void(QPainter&)> ground, Drawing drawing);

/// The same for what lies right on the window's body.
[[nodiscard]] Drawing cutFromBody(const QRectF& place, Drawing drawing);

/// The colour of what is no part of a picture.
[[nodiscard]] QRgb keyPixel() noexcept;

/// The picture at that many times its size, opaque.
[[nodiscard]] QImage rendered(const Drawing& drawing, int scale);

/// The files of the skin, in the order of their families.
[[nodiscard]] Drawings skinDrawings();

/// The files of the skin that the mini window shows.
[[nodiscard]] Drawings miniSkinDrawings();

/// The pictures of its elements that no file of a skin gives one.
[[nodiscard]] Drawings miniWindowDrawings();

/// The pictures of elements that no file of a skin gives one: bars, lamps and the equalizer's
/// ground. They belong to the window.
[[nodiscard]] Drawings windowDrawings();

} // namespace tovik::skinart
