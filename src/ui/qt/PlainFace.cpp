// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/PlainFace.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/PlainSymbols.h"

#include <cmath>
#include <QFontMetricsF>
#include <QLinearGradient>

namespace tovik::ui {

namespace {

constexpr double kPanelRadius = 5;
constexpr double kButtonRadius = 4;
constexpr double kSliderRadius = 2.5;
constexpr double kThinnestPanel = 3; ///< what is thinner is a line
constexpr int kLighter = 118;
constexpr int kDarker = 118;
constexpr int kMark = 190;
constexpr double kNarrowest = 0.6; ///< share of its width that a label's text keeps at least
constexpr double kHair = 0.01;

// Small words are as high as the glyphs of a strip, and their line has room for what hangs below.
constexpr int kSmallTextPixels = 8;
constexpr QPointF kSmallTextStart{1, 8};

QRectF boxOf(const Element& element) {
    return {element.left, element.top, element.width, element.height};
}

QLinearGradient downwards(const QRectF& box, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(box.topLeft(), box.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

void fillRounded(QPainter& painter, const QRectF& box, double radius, const QBrush& brush) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(box, radius, radius);
}

/// By what a label's words become narrower, so that all of them are read.
double narrowingOf(const Element& element, double textWidth) {
    if (element.kind != ElementKind::Label || textWidth <= element.width || textWidth <= 0) {
        return 1;
    }
    // The last hair keeps rounding from cutting what just fits.
    return std::max(kNarrowest, element.width / (textWidth + kHair));
}

void drawCaption(QPainter& painter, const Element& element, Qt::Alignment aligned) {
    if (element.caption.empty()) {
        return;
    }
    const auto alignment = static_cast<int>(aligned.toInt());
    const QRectF box = boxOf(element);
    const QString text = displayString(element.caption);
    const QColor colour = qtColour(element.textColour);
    if (drawSymbol(painter, text, box, colour)) {
        return;
    }
    QFont font = painter.font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(element.textHeight))));
    painter.setFont(font);
    painter.setPen(colour);
    if (element.wraps) {
        painter.drawText(box, alignment | Qt::TextWordWrap, text);
        return;
    }
    const QFontMetricsF metrics(font);
    const double narrowing = narrowingOf(element, metrics.horizontalAdvance(text));
    // One character is never replaced by dots: digits stand closer than their boxes are wide.
    const QString fitting =
        text.size() > 1 ? metrics.elidedText(text, Qt::ElideRight, element.width / narrowing)
                        : text;
    const QRectF room = box.adjusted(0, -kPlainOverflow, 0, kPlainOverflow);
    painter.setClipRect(room.adjusted(-1, 0, kPlainOverflow, 0), Qt::IntersectClip);
    painter.translate(room.topLeft());
    painter.scale(narrowing, 1);
    painter.drawText(QRectF(0, 0, room.width() / narrowing, room.height()),
                     alignment | Qt::TextSingleLine, fitting);
}

void drawPanel(QPainter& painter, const Element& element, bool ground) {
    if (!element.backColour) {
        return;
    }
    const QRectF box = boxOf(element);
    const QColor colour = qtColour(*element.backColour);
    if (ground) {
        painter.fillRect(box, downwards(box, colour.lighter(kLighter), colour.darker(kDarker)));
    } else if (box.height() < kThinnestPanel || box.width() < kThinnestPanel) {
        painter.fillRect(box, colour);
    } else {
        fillRounded(painter, box, kPanelRadius, colour);
    }
}

void drawButton(QPainter& painter, const Element& element, bool hovered) {
    if (element.backColour) {
        QColor colour = qtColour(*element.backColour);
        if (element.checked || hovered) {
            colour = colour.lighter(kLighter);
        }
        if (element.shade == Shade::Darker) {
            colour = colour.darker(kDarker);
        }
        const QRectF box = boxOf(element).adjusted(0.5, 0.5, -0.5, -0.5);
        // Light comes from above: a pressed button is lit from below.
        const QColor bright = colour.lighter(kLighter);
        fillRounded(painter, box, kButtonRadius,
                    element.checked ? downwards(box, colour.darker(kDarker), bright)
                                    : downwards(box, bright, colour));
        painter.setPen(colour.darker(kDarker * 2 - 100));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box, kButtonRadius, kButtonRadius);
    }
    drawCaption(painter, element, Qt::AlignCenter);
}

void drawBar(QPainter& painter, const Element& element) {
    const QRectF box = boxOf(element);
    if (!element.backColour || box.isEmpty()) {
        return;
    }
    const double radius = std::min({kButtonRadius, box.width() / 2, box.height() / 2});
    const QColor colour = qtColour(element.checked ? element.textColour : *element.backColour);
    fillRounded(painter, box, radius,
                element.checked ? downwards(box, colour.lighter(kLighter), colour)
                                : downwards(box, colour.darker(kDarker), colour));
}

} // namespace

void drawPlain(QPainter& painter, const Element& element, PlainState state) {
    painter.save();
    if (!element.enabled) {
        painter.setOpacity(kDisabledOpacity);
    }
    switch (element.kind) {
    case ElementKind::Button:
        drawButton(painter, element, state.hovered && element.enabled);
        break;
    case ElementKind::Bar:
    case ElementKind::Slider:
        drawBar(painter, element);
        break;
    case ElementKind::Image:
    case ElementKind::Label:
        drawPanel(painter, element, state.ground);
        drawCaption(painter, element,
                    Qt::AlignLeft | (element.wraps ? Qt::AlignTop : Qt::AlignVCenter));
        break;
    case ElementKind::Control:
        // The words are the widget's: they would be seen once more where it lets something through.
        drawPanel(painter, element, state.ground);
        break;
    }
    painter.restore();
}

void drawSmallText(QPainter& painter, const Element& element) {
    painter.save();
    const QRectF box = boxOf(element);
    painter.setClipRect(box, Qt::IntersectClip);
    if (element.backColour) {
        painter.fillRect(box, qtColour(*element.backColour));
    }
    QFont font = painter.font();
    font.setPixelSize(kSmallTextPixels);
    painter.setFont(font);
    painter.setPen(qtColour(element.textColour));
    painter.drawText(box.topLeft() + kSmallTextStart, displayString(element.smallText));
    painter.restore();
}

void drawPlainSliderBar(QPainter& painter, const Element& element, const Box& bar) {
    const QRectF box(bar.left, bar.top, bar.width, bar.height);
    if (box.isEmpty()) {
        return;
    }
    painter.save();
    if (!element.enabled) {
        painter.setOpacity(kDisabledOpacity);
    }
    const QColor colour = qtColour(element.textColour);
    const double radius = std::min(kSliderRadius, box.height() / 2);
    fillRounded(painter, box, radius, downwards(box, colour.lighter(kLighter), colour));
    // The line across the middle points at the value.
    painter.fillRect(QRectF(box.left() + 2, box.center().y() - 0.5, box.width() - 4, 1),
                     colour.lighter(kMark));
    painter.restore();
}

} // namespace tovik::ui
