// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/Outline.h"

#include "ui/qt/Reduction.h"
#include "ui/qt/SkinScale.h"

#include <cmath>
#include <utility>
#include <vector>

namespace tovik::ui {

namespace {

constexpr QRgb kOpaque = 0xFF000000U;

/// Where a row is in and out by turns.
std::vector<int> edgesOf(const QImage& image, int y, int leastAlpha) {
    std::vector<int> edges;
    const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    bool inside = false;
    for (int x = 0; x < image.width(); ++x) {
        if (std::exchange(inside, qAlpha(line[x]) >= leastAlpha) != inside) {
            edges.push_back(x);
        }
    }
    if (inside) {
        edges.push_back(image.width());
    }
    return edges;
}

} // namespace

QRegion seenPixels(const QImage& image, int leastAlpha) {
    // Rows that are alike make one band.
    std::vector<QRect> bands;
    std::vector<int> edges;
    int top = 0;
    for (int y = 0; y <= image.height(); ++y) {
        std::vector<int> next;
        if (y < image.height()) {
            next = edgesOf(image, y, leastAlpha);
            if (next == edges) {
                continue;
            }
        }
        for (std::size_t i = 0; i + 1 < edges.size(); i += 2) {
            bands.emplace_back(edges[i], top, edges[i + 1] - edges[i], y - top);
        }
        edges = std::move(next);
        top = y;
    }
    QRegion region;
    region.setRects(bands.data(), static_cast<int>(bands.size()));
    return region;
}

QRegion roomOf(const Region& region, double scale) {
    const double beyond = std::abs(scale - 1) < kScaleHair ? 0 : 1;
    QRegion room;
    for (const RegionRectangle& one : region.rectangles()) {
        room += SkinScale(scale).pixels({.left = one.left - beyond,
                                         .top = one.top - beyond,
                                         .width = one.right - one.left + 2 * beyond,
                                         .height = one.bottom - one.top + 2 * beyond});
    }
    return room;
}

QImage hardEdged(QImage image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            line[x] = qAlpha(line[x]) < kHardEdge ? 0 : qUnpremultiply(line[x]) | kOpaque;
        }
    }
    return image;
}

} // namespace tovik::ui
