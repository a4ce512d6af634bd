// SPDX-License-Identifier: GPL-3.0-or-later
#include "PixelArt.h"

#include <cmath>

namespace tovik::skinart {

namespace {

bool isSet(const PixelRows& rows, int x, int y) {
    if (y < 0 || x < 0 || y >= static_cast<int>(rows.size())) {
        return false;
    }
    const std::string& row = rows[static_cast<std::size_t>(y)];
    return x < static_cast<int>(row.size()) && row[static_cast<std::size_t>(x)] == 'X';
}

/// The value of the quarter of a pixel that points to one side and up or down. A slope runs there
/// if both neighbours differ from the pixel while the one across the corner is like it.
bool quarterSet(const PixelRows& rows, int x, int y, int side, int height) {
    const bool self = isSet(rows, x, y);
    const bool slope = isSet(rows, x + side, y) != self && isSet(rows, x, y + height) != self &&
                       isSet(rows, x + side, y + height) == self;
    // Where both diagonals cross, neither is a slope.
    const bool crossing = isSet(rows, x - side, y) != self && isSet(rows, x, y - height) != self;
    return slope && !crossing ? !self : self;
}

} // namespace

void paintPixels(QPainter& painter, QPoint corner, const PixelRows& rows, QRgb colour) {
    const bool fine = std::lround(painter.transform().m11()) % 2 == 0;
    const QColor ink = QColor::fromRgba(colour);
    std::size_t width = 0;
    for (const std::string& row : rows) {
        width = std::max(width, row.size());
    }
    // One pixel beyond the shape, where a slope may add a quarter.
    for (int y = -1; y <= static_cast<int>(rows.size()); ++y) {
        for (int x = -1; x <= static_cast<int>(width); ++x) {
            if (!fine) {
                if (isSet(rows, x, y)) {
                    painter.fillRect(corner.x() + x, corner.y() + y, 1, 1, ink);
                }
                continue;
            }
            for (const int height : {-1, 1}) {
                for (const int side : {-1, 1}) {
                    if (quarterSet(rows, x, y, side, height)) {
                        painter.fillRect(QRectF(corner.x() + x + 0.25 * (side + 1),
                                                corner.y() + y + 0.25 * (height + 1), 0.5, 0.5),
                                         ink);
                    }
                }
            }
        }
    }
}

} // namespace tovik::skinart
