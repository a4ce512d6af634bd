// SPDX-License-Identifier: GPL-3.0-or-later
#include "PixelArt.h"

#include "Strokes.h"

#include <algorithm>
#include <cmath>
#include <QPolygonF>

namespace tovik::skinart {

namespace {

constexpr double kRounding = 0.25; ///< of the corners where nothing joins

bool isSet(const PixelRows& rows, int x, int y) {
    if (y < 0 || x < 0 || y >= static_cast<int>(rows.size())) {
        return false;
    }
    const std::string& row = rows[static_cast<std::size_t>(y)];
    return x < static_cast<int>(row.size()) && row[static_cast<std::size_t>(x)] == 'X';
}

/// Whether a pixel touches the one across a corner, and no other there joins them.
bool joinsAcross(const PixelRows& rows, int x, int y, int side, int height) {
    return isSet(rows, x + side, y + height) && !isSet(rows, x + side, y) &&
           !isSet(rows, x, y + height);
}

bool hasSlope(const PixelRows& rows, int x, int y) {
    return joinsAcross(rows, x, y, -1, -1) || joinsAcross(rows, x, y, 1, -1) ||
           joinsAcross(rows, x, y, -1, 1) || joinsAcross(rows, x, y, 1, 1);
}

/// Whether the four pixels right of and below a corner of the grid are set.
bool isArea(const PixelRows& rows, int x, int y) {
    return isSet(rows, x, y) && isSet(rows, x + 1, y) && isSet(rows, x, y + 1) &&
           isSet(rows, x + 1, y + 1);
}

/// Whether a free pixel is the inner corner of a stair, that is, of an area: the inner corners of
/// letters, where two strokes meet, stay.
bool isStair(const PixelRows& rows, int x, int y, int side, int height) {
    // Of the pixels round the corner this one alone is free.
    if (isSet(rows, x, y) || !isSet(rows, x + side, y) || !isSet(rows, x, y + height) ||
        !isSet(rows, x + side, y + height)) {
        return false;
    }
    // Of an area that goes on behind one of both neighbours.
    const int left = std::min(x, x + side);
    const int top = std::min(y, y + height);
    return isArea(rows, left, top + height) || isArea(rows, left + side, top);
}

QPainterPath outlineOf(const PixelRows& rows) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    const auto add = [&path](const QPolygonF& shape) {
        path.addPolygon(shape);
        path.closeSubpath();
    };
    const int width = static_cast<int>(rows.front().size());
    const int height = static_cast<int>(rows.size());
    // All shapes run the same way round, or they would cut each other.
    for (int y = -1; y <= height; ++y) {
        for (int x = -1; x <= width; ++x) {
            const QPointF middle(x + 0.5, y + 0.5);
            for (const int down : {-1, 1}) {
                for (const int side : {-1, 1}) {
                    if (isStair(rows, x, y, side, down)) {
                        const QPointF inner = middle + QPointF(0.5 * side, 0.5 * down);
                        const QPointF across(-side, 0);
                        const QPointF along(0, -down);
                        add(side == down ? QPolygonF{inner, inner + across, inner + along}
                                         : QPolygonF{inner, inner + along, inner + across});
                    }
                }
            }
            if (!isSet(rows, x, y)) {
                continue;
            }
            if (hasSlope(rows, x, y)) {
                path.addEllipse(middle, 0.5, 0.5);
            } else {
                path.addRoundedRect(QRectF(x, y, 1, 1), kRounding, kRounding);
            }
            if (isSet(rows, x + 1, y)) {
                path.addRect(QRectF(x + 0.5, y, 1, 1));
            }
            if (isSet(rows, x, y + 1)) {
                path.addRect(QRectF(x, y + 0.5, 1, 1));
            }
            for (const int side : {-1, 1}) {
                if (joinsAcross(rows, x, y, side, 1)) {
                    const QPointF end = middle + QPointF(side, 1);
                    const QPointF half = QPointF(1, -side) * (0.5 / std::sqrt(2.0));
                    add({middle - half, middle + half, end + half, end - half});
                }
            }
        }
    }
    return path;
}

/// The part of the rows that holds all set pixels.
QRectF extentOf(const PixelRows& rows) {
    QRect extent;
    for (int y = 0; y < static_cast<int>(rows.size()); ++y) {
        for (int x = 0; x < static_cast<int>(rows.front().size()); ++x) {
            extent = isSet(rows, x, y) ? extent.united(QRect(x, y, 1, 1)) : extent;
        }
    }
    return extent;
}

bool isPlain(const QPainter& painter) {
    return std::lround(painter.transform().m11()) == 1;
}

} // namespace

void paintPixels(QPainter& painter, QPoint corner, const PixelRows& rows, QRgb colour) {
    const QColor ink = QColor::fromRgba(colour);
    if (!isPlain(painter)) {
        painter.fillPath(outlineOf(rows).translated(corner), ink);
        return;
    }
    for (int y = 0; y < static_cast<int>(rows.size()); ++y) {
        for (int x = 0; x < static_cast<int>(rows.front().size()); ++x) {
            if (isSet(rows, x, y)) {
                painter.fillRect(corner.x() + x, corner.y() + y, 1, 1, ink);
            }
        }
    }
}

void paintSign(QPainter& painter, QPoint corner, const PixelRows& rows, Icon icon, QRgb colour) {
    if (isPlain(painter)) {
        paintPixels(painter, corner, rows, colour);
        return;
    }
    const QPainterPath path = placed(iconPath(icon));
    const QRectF from = path.boundingRect();
    const QRectF to = extentOf(rows).translated(corner);
    QTransform place;
    place.translate(to.left(), to.top());
    place.scale(to.width() / from.width(), to.height() / from.height());
    place.translate(-from.left(), -from.top());
    painter.fillPath(place.map(path), QColor::fromRgba(colour));
}

} // namespace tovik::skinart
