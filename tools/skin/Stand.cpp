// SPDX-License-Identifier: GPL-3.0-or-later
#include "Stand.h"

#include "Badge.h"
#include "Shapes.h"
#include "Strokes.h"

#include <array>
#include <QRadialGradient>

namespace tovik::skinart {

namespace {

constexpr QSize kSplash(300, 200);

/// The letters of the program's name as lines in a field 10 high, from the left.
QPainterPath nameLetters() {
    constexpr double kStroke = 1.9;
    constexpr double kHigh = 10;
    const auto dot = [](double x, double y) { return circle({x, y}, 1.2); };
    QPainterPath all =
        line({{0, 0}, {7, 0}}, kStroke).united(line({{3.5, 0}, {3.5, kHigh}}, kStroke));
    all = all.united(ring({12, 6.8}, 3.2, kStroke));
    all = all.united(line({{17.8, 3.6}, {20.8, kHigh}, {23.8, 3.6}}, kStroke));
    all = all.united(line({{27.4, 3.8}, {27.4, kHigh}}, kStroke)).united(dot(27.4, 0.6));
    all = all.united(line({{31.4, 0}, {31.4, kHigh}}, kStroke))
              .united(line({{36.2, 3.6}, {31.8, 7}}, kStroke))
              .united(line({{33, 6.2}, {36.4, kHigh}}, kStroke));
    return all;
}

} // namespace

QImage splashPicture(int scale) {
    QImage image(kSplash * scale, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    const QRectF box(QPointF(0, 0), QSizeF(kSplash));
    painter.fillRect(box, downwards(box, kShell));
    QRadialGradient light(box.center().x(), 0, 190);
    light.setColorAt(0, QColor(255, 255, 255, 60));
    light.setColorAt(1, Qt::transparent);
    painter.fillRect(box, light);
    const QRectF glass = box.adjusted(12, 12, -12, -12);
    paintGlass(painter, glass, 10);
    // Bars of sound along the foot of the glass.
    constexpr std::array kBars{12, 26, 40, 22, 34, 52, 38, 20, 30, 46, 60, 42, 24,
                               36, 50, 32, 18, 28, 44, 30, 16, 24, 36, 20, 10};
    double left = glass.left() + 14;
    for (const int bar : kBars) {
        const QRectF column(left, glass.bottom() - 1 - bar, 6, bar);
        painter.fillRect(column, downwards(column, {0xC0FFA61F, 0x207DE6FF}));
        left += 10;
    }
    paintBadge(painter, {42, 46, 72, 72});
    const QPainterPath letters = placed(nameLetters(), {136, 64}, 3.4);
    painter.fillPath(letters.translated(0, 2), QColor(0, 0, 0, 140));
    painter.fillPath(letters, downwards(letters.boundingRect(), {kWhite, 0xFFB9C4FF}));
    painter.setPen(QColor::fromRgb(kShellFoot));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0.5, 0.5, -0.5, -0.5));
    return image;
}

} // namespace tovik::skinart
