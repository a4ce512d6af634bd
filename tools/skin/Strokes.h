// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of symbols. Any thread.
#pragma once

#include <initializer_list>
#include <QPainterPath>
#include <QPainterPathStroker>

namespace tovik::skinart {

/// The outline of a line with round ends.
inline QPainterPath stroked(const QPainterPath& path, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path).simplified();
}

inline QPainterPath line(std::initializer_list<QPointF> points, double width) {
    QPainterPath path;
    for (const QPointF& point : points) {
        if (path.elementCount() == 0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    return stroked(path, width);
}

/// A filled shape with slightly rounded corners.
inline QPainterPath polygon(std::initializer_list<QPointF> points, double rounding = 1.2) {
    QPainterPath path;
    for (const QPointF& point : points) {
        if (path.elementCount() == 0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    path.closeSubpath();
    return path.united(stroked(path, rounding));
}

inline QPainterPath block(const QRectF& box, double radius = 0.8) {
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    return path;
}

inline QPainterPath circle(QPointF centre, double radius) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
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
