// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/Reduction.h"

#include "ui/qt/Outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace tovik::ui {

namespace {

constexpr std::size_t kFewCovered = 3;  ///< source pixels along a side, at a ratio of up to 2
constexpr std::size_t kMostCovered = 9; ///< likewise up to 8
constexpr int kWhole = 256;             ///< all weights of a pixel

/// The source pixels along one side that a pixel covers, and by how much.
template <std::size_t kCovered>
struct Cover {
    int first = 0;
    std::array<std::uint32_t, kCovered> weights{}; ///< none for a pixel beside the source
};

template <std::size_t kCovered>
using Covers = std::vector<Cover<kCovered>>;

/// The weights add up to the whole, so that an even colour stays what it is.
template <std::size_t kCovered>
Cover<kCovered> coverOf(int pixel, double ratio, int origin, int size) {
    const double begin = std::max(pixel * ratio - origin, 0.0);
    const double end = std::min((pixel + 1) * ratio - origin, static_cast<double>(size));
    Cover<kCovered> cover;
    if (end - begin < kScaleHair) {
        return cover;
    }
    cover.first = std::clamp(static_cast<int>(begin + kScaleHair), 0, size - 1);
    std::uint32_t given = 0;
    for (int i = 0; i < static_cast<int>(kCovered); ++i) {
        const double passed = std::min<double>(cover.first + i + 1, end) - begin;
        const auto until = static_cast<std::uint32_t>(std::lround(passed / (end - begin) * kWhole));
        cover.weights.at(static_cast<std::size_t>(i)) = until - given;
        given = until;
    }
    return cover;
}

template <std::size_t kCovered>
Covers<kCovered> coversOf(int first, int count, double ratio, int origin, int size) {
    Covers<kCovered> covers(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        covers[static_cast<std::size_t>(i)] = coverOf<kCovered>(first + i, ratio, origin, size);
    }
    return covers;
}

using Sums = std::array<std::uint32_t, 4>; ///< a channel each

constexpr std::array<unsigned, 4> kShifts{0, 8, 16, 24};

/// One row of the source, narrowed; sums are 256 times the channels.
template <std::size_t kCovered>
void narrow(const std::uint32_t* source, int width, const Covers<kCovered>& columns,
            std::vector<Sums>& row) {
    for (std::size_t x = 0; x < columns.size(); ++x) {
        const Cover<kCovered>& cover = columns[x];
        Sums sums{};
        for (int i = 0; i < static_cast<int>(kCovered) && cover.first + i < width; ++i) {
            const std::uint32_t weight = cover.weights[static_cast<std::size_t>(i)];
            const std::uint32_t pixel = source[cover.first + i];
            for (std::size_t channel = 0; channel < sums.size(); ++channel) {
                sums[channel] += (pixel >> kShifts[channel] & 0xFFU) * weight;
            }
        }
        row[x] = sums;
    }
}

/// Rows of the source that were narrowed, as many as one pixel can cover.
template <std::size_t kCovered>
class NarrowRows {
public:
    NarrowRows(const QImage& source, const Covers<kCovered>& columns)
        : source_(source), columns_(columns) {
        for (Row& row : rows_) {
            row.sums.resize(columns.size());
        }
    }

    const std::vector<Sums>& at(int y) {
        Row& row = rows_.at(static_cast<std::size_t>(y) % kCovered);
        if (row.y != y) {
            row.y = y;
            narrow(reinterpret_cast<const std::uint32_t*>(source_.constScanLine(y)),
                   source_.width(), columns_, row.sums);
        }
        return row.sums;
    }

private:
    struct Row {
        int y = -1;
        std::vector<Sums> sums;
    };

    const QImage& source_;
    const Covers<kCovered>& columns_;
    std::array<Row, kCovered> rows_;
};

std::uint32_t pixelOf(const Sums& sums) {
    constexpr std::uint32_t kHalf = kWhole * kWhole / 2;
    std::uint32_t pixel = 0;
    for (std::size_t channel = 0; channel < sums.size(); ++channel) {
        pixel |= (sums[channel] + kHalf) / (kWhole * kWhole) << kShifts[channel];
    }
    return pixel;
}

template <std::size_t kCovered>
QImage reducedBy(const QImage& source, QPoint origin, double ratio, const QRect& part) {
    QImage result(part.size(), QImage::Format_ARGB32_Premultiplied);
    const auto columns =
        coversOf<kCovered>(part.left(), part.width(), ratio, origin.x(), source.width());
    const auto rows =
        coversOf<kCovered>(part.top(), part.height(), ratio, origin.y(), source.height());
    NarrowRows<kCovered> narrowed(source, columns);
    std::vector<Sums> sums(columns.size());
    for (int y = 0; y < part.height(); ++y) {
        const Cover<kCovered>& cover = rows[static_cast<std::size_t>(y)];
        std::ranges::fill(sums, Sums{});
        for (int i = 0; i < static_cast<int>(kCovered) && cover.first + i < source.height(); ++i) {
            const std::uint32_t weight = cover.weights[static_cast<std::size_t>(i)];
            if (weight == 0) {
                continue;
            }
            const std::vector<Sums>& row = narrowed.at(cover.first + i);
            for (std::size_t x = 0; x < sums.size(); ++x) {
                for (std::size_t channel = 0; channel < sums[x].size(); ++channel) {
                    sums[x][channel] += row[x][channel] * weight;
                }
            }
        }
        auto* const line = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
        std::ranges::transform(sums, line, pixelOf);
    }
    return result;
}

} // namespace

int wholeFactor(double scale) noexcept {
    return std::max(1, static_cast<int>(std::ceil(scale - kScaleHair)));
}

QImage reduced(const QImage& source, QPoint origin, double ratio, const QRect& part) {
    return ratio <= 2 ? reducedBy<kFewCovered>(source, origin, ratio, part)
                      : reducedBy<kMostCovered>(source, origin, ratio, part);
}

void drawReduced(QPainter& painter, const ReducedImage& what, const QRect& place) {
    const QRectF onDevice(place.left() * what.ratio, place.top() * what.ratio,
                          place.width() * what.ratio, place.height() * what.ratio);
    const QRect part = onDevice.toAlignedRect();
    painter.save();
    // One pixel of the image is one of the device from here on.
    painter.scale(1 / what.ratio, 1 / what.ratio);
    if (std::abs(what.factor - what.scale) < kScaleHair) {
        const QRect shown = part.intersected({what.origin, what.image.size()});
        painter.drawImage(shown.topLeft(), what.image, shown.translated(-what.origin));
    } else {
        QImage shown = reduced(what.image, what.origin, what.factor / what.scale, part);
        painter.drawImage(part.topLeft(),
                          what.hardEdged ? hardEdged(std::move(shown)) : std::move(shown));
    }
    painter.restore();
}

} // namespace tovik::ui
