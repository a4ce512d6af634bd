// SPDX-License-Identifier: GPL-3.0-or-later
#include "Badge.h"

#include "Emblem.h"
#include "Shapes.h"

#include <array>
#include <cmath>
#include <QLinearGradient>
#include <QTransform>
#include <vector>

namespace tovik::skinart {

namespace {

// The badge in a field of 64: its frame, the glass in it, and where the mark stands on that.
constexpr double kUnits = 64;
constexpr QRectF kBadge(3, 3, 58, 58);
constexpr double kRoundness = 0.24;  ///< of the frame's width
constexpr double kRim = 1.0 / 32;    ///< likewise
constexpr double kGlassInset = 0.09; ///< likewise
constexpr double kMarkInset = 0.12;  ///< likewise
constexpr Shade kMark{0xFFFFDFA8, 0xFFFF9C00};

QRectF inset(const QRectF& box, double part) {
    const double by = box.width() * part;
    return box.adjusted(by, by, -by, -by);
}

QPainterPath emblemIn(const QRectF& box) {
    QTransform place;
    place.translate(box.left(), box.top());
    place.scale(box.width() / 16, box.height() / 16);
    return place.map(emblemPath());
}

/// The mark at a small size: five bars on whole pixels.
struct SmallMark {
    int size;
    int bar;
    int gap;
    int top;
    int shortBar;
    int longBar;
};

constexpr auto kSmall = std::to_array<SmallMark>({
    {16, 2, 1, 3, 4, 10},
    {22, 2, 2, 4, 5, 14},
    {24, 2, 2, 5, 5, 14},
    {32, 4, 1, 7, 7, 18},
    {48, 6, 2, 10, 11, 28},
});

std::vector<QRectF> smallBars(const SmallMark& mark) {
    std::vector<QRectF> bars;
    int left = (mark.size - 5 * mark.bar - 4 * mark.gap) / 2;
    for (int bar = 0; bar < 5; ++bar) {
        bars.emplace_back(left, mark.top, mark.bar, bar == 2 ? mark.longBar : mark.shortBar);
        left += mark.bar + mark.gap;
    }
    return bars;
}

const SmallMark* smallMark(int size) {
    for (const SmallMark& mark : kSmall) {
        if (mark.size == size) {
            return &mark;
        }
    }
    return nullptr;
}

void paintSmallBadge(QPainter& painter, const SmallMark& mark) {
    const QRectF box(0, 0, mark.size, mark.size);
    const double radius = mark.size * 0.25;
    painter.fillPath(rounded(box, radius), downwards(box, kShell));
    const QRectF glass = box.adjusted(1, 1, -1, -1);
    painter.fillPath(rounded(glass, radius - 1), downwards(glass, kGlass));
    for (const QRectF& bar : smallBars(mark)) {
        painter.fillRect(bar, downwards(QRectF(0, mark.top, 1, mark.longBar), kMark));
    }
}

/// The mark alone, with a thin edge that keeps it in sight on any ground.
void paintMark(QPainter& painter, int size, const QBrush& ink, QRgb edge) {
    QPainterPath path;
    if (const SmallMark* const mark = smallMark(size); mark != nullptr) {
        for (const QRectF& bar : smallBars(*mark)) {
            path.addRect(bar);
        }
    } else {
        path = emblemIn(inset({0, 0, static_cast<double>(size), static_cast<double>(size)}, 0.02));
    }
    painter.strokePath(path, QPen(QColor::fromRgba(edge), std::max(1.0, size / 16.0)));
    painter.fillPath(path, ink);
}

std::string hex(QRgb colour) {
    return QColor::fromRgb(colour).name().toStdString();
}

std::string number(double value) {
    const auto hundredths = static_cast<int>(std::lround(value * 100));
    std::string text = std::to_string(hundredths / 100);
    if (const int rest = hundredths % 100; rest != 0) {
        const std::string two = std::to_string(100 + rest).substr(1);
        text += "." + (two.back() == '0' ? two.substr(0, 1) : two);
    }
    return text;
}

std::string gradient(const std::string& id, const QRectF& box, Shade shade) {
    return "    <linearGradient id=\"" + id + "\" gradientUnits=\"userSpaceOnUse\" x1=\"0\" y1=\"" +
           number(box.top()) + "\" x2=\"0\" y2=\"" + number(box.bottom()) +
           "\">\n      <stop offset=\"0\" stop-color=\"" + hex(shade.top) +
           "\"/>\n      <stop offset=\"1\" stop-color=\"" + hex(shade.bottom) +
           "\"/>\n    </linearGradient>\n";
}

std::string rectangle(const QRectF& box, double radius, const std::string& more) {
    return "  <rect x=\"" + number(box.left()) + "\" y=\"" + number(box.top()) + "\" width=\"" +
           number(box.width()) + "\" height=\"" + number(box.height()) + "\" rx=\"" +
           number(radius) + "\" " + more + "/>\n";
}

} // namespace

void paintBadge(QPainter& painter, const QRectF& box) {
    const double radius = box.width() * kRoundness;
    painter.fillPath(rounded(box, radius), downwards(box, kShell));
    const double width = box.width() * kRim;
    painter.strokePath(rounded(inset(box, kRim / 2), radius - width / 2),
                       QPen(downwards(box, {kShellRim, kShellFoot}), width));
    const QRectF glass = inset(box, kGlassInset);
    painter.fillPath(rounded(glass, radius * 0.7), downwards(glass, kGlass));
    const QRectF mark = inset(box, kMarkInset);
    painter.fillPath(emblemIn(mark), downwards(mark, kMark));
}

QImage programIcon(int size) {
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (const SmallMark* const mark = smallMark(size); mark != nullptr) {
        paintSmallBadge(painter, *mark);
    } else {
        painter.scale(size / kUnits, size / kUnits);
        paintBadge(painter, kBadge);
    }
    return image;
}

std::string programIconSvg() {
    const double width = kBadge.width();
    const QRectF glass = inset(kBadge, kGlassInset);
    const QRectF mark = inset(kBadge, kMarkInset);
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<!-- SPDX-License-Identifier: GPL-3.0-or-later -->\n"
                       "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 64 64\" "
                       "width=\"64\" height=\"64\">\n  <defs>\n";
    text += gradient("shell", kBadge, kShell) + gradient("rim", kBadge, {kShellRim, kShellFoot}) +
            gradient("glass", glass, kGlass) + gradient("bars", mark, kMark) + "  </defs>\n";
    text += rectangle(kBadge, width * kRoundness, "fill=\"url(#shell)\"");
    text += rectangle(inset(kBadge, kRim / 2), width * (kRoundness - kRim / 2),
                      "fill=\"none\" stroke=\"url(#rim)\" stroke-width=\"" + number(width * kRim) +
                          "\"");
    text += rectangle(glass, width * kRoundness * 0.7, "fill=\"url(#glass)\"");
    const double unit = mark.width() / 16;
    for (const QRectF& bar : emblemBars()) {
        const QRectF box(mark.topLeft() + bar.topLeft() * unit, bar.size() * unit);
        text += rectangle(box, box.width() / 2, "fill=\"url(#bars)\"");
    }
    return text + "</svg>\n";
}

QImage trayIcon(int style, int size) {
    if (style == 1) {
        return programIcon(size);
    }
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(0, 0, size, size);
    if (style == 2) {
        paintMark(painter, size, downwards(box, kMark), 0xC0101128);
    } else if (style == 3) {
        paintMark(painter, size, QColor::fromRgb(kWhite), 0x60101128);
    } else {
        paintMark(painter, size, QColor::fromRgb(kInk), 0x90FFFFFF);
    }
    return image;
}

} // namespace tovik::skinart
