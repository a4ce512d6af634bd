// SPDX-License-Identifier: GPL-3.0-or-later
// From an image that is composed at a whole factor to the screen's own scale: in one go, so that
// pieces which meet in the image meet on the screen. Interface thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>

namespace tovik::ui {

/// By what a scale may miss a whole number and count as one.
inline constexpr double kScaleHair = 1e-3;

/// The whole factor at or above a scale; at least 1.
[[nodiscard]] int wholeFactor(double scale) noexcept;

/// The pixels `part` of a picture that is `ratio` times smaller than `source`, 1 to 8: each is the
/// mean of the area that it covers. `source` is the part of the whole picture from `origin` on;
/// what lies outside it counts for nothing, and a pixel that covers none of it is transparent. The
/// same pixel comes out whatever part it is asked with. Both images are premultiplied ARGB.
[[nodiscard]] QImage reduced(const QImage& source, QPoint origin, double ratio, const QRect& part);

/// An image on a widget whose place in the window is not asked for: what is painted next to it by
/// another widget meets it to the pixel.
struct ReducedImage {
    const QImage& image; ///< composed at `factor`
    QPoint origin;       ///< of the image in the window, in its own pixels
    int factor = 1;
    double scale = 1;       ///< of the screen: pixels of the device for one skin pixel
    double ratio = 1;       ///< of the device: its pixels for one of the widget
    bool hardEdged = false; ///< a fraction, too: nobody blends what is half there, see `Outline.h`
};

/// Draws what of it lies in `place`, in widget pixels of the window, over whatever is there (or in
/// its place: the painter's mode decides). The painter stands at the window's upper left corner.
void drawReduced(QPainter& painter, const ReducedImage& what, const QRect& place);

} // namespace tovik::ui
