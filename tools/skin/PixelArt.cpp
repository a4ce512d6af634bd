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

/// The quarter of a pixel on the side of those two neighbours.
bool quarter(bool self, bool vertical, bool horizontal, bool opposite, bool across) {
    return vertical == horizontal && vertical != opposite && horizontal != across ? vertical : self;
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
            const bool self = isSet(rows, x, y);
            if (!fine) {
                if (self) {
                    painter.fillRect(corner.x() + x, corner.y() + y, 1, 1, ink);
                }
                continue;
            }
            const bool up = isSet(rows, x, y - 1);
            const bool down = isSet(rows, x, y + 1);
            const bool left = isSet(rows, x - 1, y);
            const bool right = isSet(rows, x + 1, y);
            const bool quarters[] = {
                quarter(self, up, left, down, right), quarter(self, up, right, down, left),
                quarter(self, down, left, up, right), quarter(self, down, right, up, left)};
            for (int part = 0; part < 4; ++part) {
                if (quarters[part]) {
                    painter.fillRect(QRectF(corner.x() + x + 0.5 * (part % 2),
                                            corner.y() + y + 0.5 * (part / 2), 0.5, 0.5),
                                     ink);
                }
            }
        }
    }
}

} // namespace tovik::skinart
