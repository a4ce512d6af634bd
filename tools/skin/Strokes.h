// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of symbols. Any thread.
#pragma once

#include <initializer_list>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QTransform>

namespace tovik::skinart {

/// Joining and cutting paths turns curves into short lines of a length that is fixed in the path's
/// own unit, so parts are made in a unit that much smaller than that of their arguments.
inline constexpr double kDetail = 32;

inline QPainterPath detailed(const QPainterPath& path) {
    return QTransform::fromScale(kDetail, kDetail).map(path);
}

/// Parts in the unit of their arguments again, `scale` times as large, from a corner on.
inline QPainterPath placed(const QPainterPath& parts, QPointF corner = {}, double scale = 1) {
    QTransform place;
    place.translate(corner.x(), corner.y());
    place.scale(scale / kDetail, scale / kDetail);
    return place.map(parts);
}

inline QPainterPath throughPoints(std::initializer_list<QPointF> points) {
    QPainterPath path;
    for (const QPointF& point : points) {
        if (path.elementCount() == 0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    return path;
}

/// The outline of a line with round ends.
inline QPainterPath stroked(const QPainterPath& path, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width * kDetail);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(detailed(path)).simplified();
}

inline QPainterPath line(std::initializer_list<QPointF> points, double width) {
    return stroked(throughPoints(points), width);
}

/// A filled shape with slightly rounded corners.
inline QPainterPath polygon(std::initializer_list<QPointF> points, double rounding = 1.2) {
    QPainterPath path = throughPoints(points);
    path.closeSubpath();
    return detailed(path).united(stroked(path, rounding));
}

inline QPainterPath block(const QRectF& box, double radius = 0.8) {
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    return detailed(path);
}

inline QPainterPath oval(QPointF centre, double across, double high) {
    QPainterPath path;
    path.addEllipse(centre, across, high);
    return detailed(path);
}

inline QPainterPath circle(QPointF centre, double radius) {
    return oval(centre, radius, radius);
}

inline QPainterPath ring(QPointF centre, double radius, double width) {
    return circle(centre, radius + width / 2).subtracted(circle(centre, radius - width / 2));
}

/// Part of a circle, in degrees against the clock from the right.
inline QPainterPath arc(QPointF centre, double radius, double from, double sweep, double width) {
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.arcMoveTo(box, from);
    path.arcTo(box, from, sweep);
    return stroked(path, width);
}

} // namespace tovik::skinart
