// SPDX-License-Identifier: GPL-3.0-or-later
#include "Shapes.h"

#include <QLinearGradient>
#include <QRadialGradient>

namespace tovik::skinart {

namespace {

QColor colourOf(QRgb value) {
    return QColor::fromRgba(value);
}

void fill(QPainter& painter, const QPainterPath& path, const QBrush& brush) {
    painter.fillPath(path, brush);
}

void outline(QPainter& painter, const QPainterPath& path, QRgb colour, double width = 1) {
    painter.strokePath(path, QPen(colourOf(colour), width));
}

Shade shadeOf(Look look) {
    switch (look) {
    case Look::Over:
        return kFaceOver;
    case Look::Down:
    case Look::On:
        return kFaceDown;
    case Look::Up:
    case Look::Off:
        break;
    }
    return kFaceUp;
}

bool isSunk(Look look) {
    return look == Look::Down || look == Look::On;
}

} // namespace

QBrush downwards(const QRectF& box, Shade shade) {
    QLinearGradient gradient(box.topLeft(), box.bottomLeft());
    gradient.setColorAt(0, colourOf(shade.top));
    gradient.setColorAt(1, colourOf(shade.bottom));
    return gradient;
}

QPainterPath rounded(const QRectF& box, double radius) {
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    return path;
}

void paintFace(QPainter& painter, const QRectF& box, Look look, double radius) {
    const QRectF body = box.adjusted(0.5, 0.5, -0.5, -1.5);
    const QPainterPath shape = rounded(body, radius);
    fill(painter, shape.translated(0, 1), colourOf(isSunk(look) ? kDeckLip : kFaceShadow));
    fill(painter, shape, downwards(body, shadeOf(look)));
    painter.save();
    painter.setClipPath(shape);
    if (isSunk(look)) {
        const QRectF upper(body.left(), body.top(), body.width(), 6);
        painter.fillRect(upper, downwards(upper, {0xA0000000, kNothing}));
    } else {
        const QPainterPath inner = rounded(body.adjusted(1, 1, -1, 4), radius - 1);
        QLinearGradient lip(body.topLeft(), QPointF(body.left(), body.top() + radius + 1));
        lip.setColorAt(0, colourOf(kFaceLip));
        lip.setColorAt(1, Qt::transparent);
        painter.strokePath(inner, QPen(lip, 1));
        // The lower edge turns away from the light.
        const QRectF lower(body.left(), body.bottom() - 4, body.width(), 4);
        painter.fillRect(lower, downwards(lower, {kNothing, 0x38000020}));
        if (look == Look::Over) {
            outline(painter, rounded(body.adjusted(1, 1, -1, -1), radius - 1), kFaceRing);
        }
    }
    painter.restore();
    outline(painter, shape, kFaceEdge);
}

QRgb symbolColour(Look look) noexcept {
    switch (look) {
    case Look::Over:
        return kWhite;
    case Look::Down:
    case Look::On:
        return kAmber;
    case Look::Off:
    case Look::Up:
        break;
    }
    return kIcon;
}

double sunk(Look look) noexcept {
    return isSunk(look) ? 1 : 0;
}

void paintCard(QPainter& painter, const QRectF& box, double head) {
    // To the very edge of its box, so that its words have room: the deck is dark enough to end it.
    const QPainterPath shape = rounded(box, 4);
    fill(painter, shape, downwards(box, kCard));
    painter.save();
    painter.setClipPath(shape);
    if (head > 0) {
        const QRectF strip(box.left(), box.top(), box.width(), head);
        painter.fillRect(strip, downwards(strip, kCardHead));
        painter.fillRect(QRectF(strip.left(), strip.bottom() - 1, strip.width(), 1),
                         colourOf(kCardLine));
        painter.fillRect(QRectF(strip.left(), strip.bottom(), strip.width(), 1),
                         colourOf(0x70FFFFFF));
    }
    outline(painter, rounded(box.adjusted(0.5, 0.5, -0.5, -0.5), 3.5), 0x48FFFFFF);
    painter.fillRect(QRectF(box.left() + 3, box.top(), box.width() - 6, 1), colourOf(0x90FFFFFF));
    painter.restore();
}

void paintGlass(QPainter& painter, const QRectF& box, double radius) {
    paintGlass(painter, rounded(box.adjusted(0.5, 0.5, -0.5, -0.5), radius));
}

void paintGlass(QPainter& painter, const QPainterPath& shape) {
    const QRectF body = shape.boundingRect();
    fill(painter, shape.translated(0, 1), colourOf(kDeckLip));
    fill(painter, shape, downwards(body, kGlass));
    painter.save();
    painter.setClipPath(shape);
    // The window that the deck stands in front of, seen in the glass.
    QLinearGradient gleam(body.topLeft(), body.topLeft() + QPointF(0, body.height() * 0.42));
    gleam.setColorAt(0, colourOf(0x26C8D4FF));
    gleam.setColorAt(1, colourOf(0x08C8D4FF));
    painter.fillRect(QRectF(body.left(), body.top(), body.width(), body.height() * 0.42), gleam);
    painter.restore();
    outline(painter, shape, kGlassEdge);
}

void paintGroove(QPainter& painter, const QRectF& box, QRgb bottom) {
    const double radius = std::min(box.width(), box.height()) / 2;
    fill(painter, rounded(box.translated(0, 1), radius), colourOf(0xB0FFFFFF));
    fill(painter, rounded(box, radius), colourOf(kInk));
    const QRectF inner = box.adjusted(1, 1, -1, -0.5);
    fill(painter, rounded(inner, radius - 1), downwards(inner, {kInk, bottom}));
}

void paintKnob(QPainter& painter, const QRectF& box, const QRectF& mark) {
    const QRectF body = box.adjusted(0.5, 0.5, -0.5, -0.5);
    const QPainterPath shape = rounded(body, 3);
    fill(painter, shape, downwards(body, kKnob));
    outline(painter, rounded(body.adjusted(1, 1, -1, -1), 2), 0x90FFFFFF);
    outline(painter, shape, kInk);
    painter.fillRect(mark, colourOf(kKnobMark));
}

void paintLamp(QPainter& painter, const QRectF& box, QRgb colour, bool lit) {
    const double radius = std::min(box.width(), box.height()) / 2.5;
    if (lit) {
        QColor halo = colourOf(colour);
        halo.setAlpha(70);
        fill(painter, rounded(box.adjusted(-1.2, -1.2, 1.2, 1.2), radius + 1.2), halo);
    }
    const QColor base = lit ? colourOf(colour) : colourOf(kDeckEdge);
    fill(painter, rounded(box, radius), base);
    const QRectF shine = box.adjusted(1, 0.8, -1, -box.height() * 0.55);
    fill(painter, rounded(shine, shine.height() / 2), colourOf(lit ? 0xA0FFFFFF : 0x28FFFFFF));
}

} // namespace tovik::skinart
