// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"
#include "Emblem.h"
#include "Families.h"
#include "Icons.h"
#include "Shapes.h"

#include <QTransform>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

constexpr double kGlassRadius = 7;

QPainterPath emblemAt(const QRectF& box) {
    QTransform place;
    place.translate(box.left(), box.top());
    place.scale(box.width() / 16, box.height() / 16);
    return place.map(emblemPath());
}

/// What glows behind the glass where no field lies: the mark inside rings of sound.
void paintGlassOrnament(QPainter& painter) {
    const QPointF centre(46, 65);
    painter.setBrush(Qt::NoBrush);
    for (int ring = 0; ring < 4; ++ring) {
        const double radius = 17 + ring * 6.5;
        painter.setPen(QPen(QColor(125, 230, 255, 60 - ring * 14), 1.4));
        const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
        painter.drawArc(box, (-38) * 16, 76 * 16);
        painter.drawArc(box, (180 - 38) * 16, 76 * 16);
    }
    painter.fillPath(emblemAt({centre.x() - 12, centre.y() - 12, 24, 24}),
                     QColor(125, 230, 255, 110));
}

void paintScreen(QPainter& painter) {
    const QRectF window = rectOf({N::ScreenIMG});
    const QRectF box(QPointF(0, 0), window.size());
    paintBodyUnder(painter, window);
    paintGlass(painter, box, kGlassRadius);
    paintGlassOrnament(painter);
    // The bed of the spectrum is black, as the spectrum paints it.
    const QRectF bed = rectOf({N::Picture1}).translated(-window.topLeft());
    painter.fillRect(bed.adjusted(-1, -1, 1, 1), QColor::fromRgb(kGlassLine));
    painter.fillRect(bed, Qt::black);
    painter.fillRect(QRectF(8, 3, box.width() - 16, 1), QColor(255, 255, 255, 22));
}

/// A card whose title leaves room for a symbol at its right end.
Drawing card(const char* name, N element, double head, Icon icon) {
    const QRectF window = rectOf({element});
    return drawingFor(name, {element}, [window, head, icon](QPainter& painter) {
        const QRectF box(QPointF(0, 0), window.size());
        paintBodyUnder(painter, window);
        paintCard(painter, box, head);
        paintIcon(painter, icon, {box.right() - 11, head / 2}, 11, kInkSoft, false);
    });
}

Drawing plainCard(const char* name, N element, double head) {
    const QRectF window = rectOf({element});
    return drawingFor(name, {element}, [window, head](QPainter& painter) {
        paintBodyUnder(painter, window);
        paintCard(painter, QRectF(QPointF(0, 0), window.size()), head);
    });
}

/// The button that folds the quick list out lies on the head of a card.
Drawing fold(const char* name, N store, Icon icon) {
    Drawing drawing = drawingFor(name, {N::qpl_but}, {store}, [icon](QPainter& painter) {
        const QRectF head(-144, -3, 166, 16);
        painter.fillRect(QRectF(0, 0, 14, 10), downwards(head, kCardHead));
        painter.fillPath(rounded({0.5, 0, 13, 10}, 3), QColor::fromRgb(kFaceUp.bottom));
        paintIcon(painter, icon, {7, 5}, 10, kWhite, false);
    });
    return drawing;
}

void paintWindowIcon(QPainter& painter) {
    const QRectF window = rectOf({N::iconIMG});
    const QRectF box(QPointF(0, 0), window.size());
    paintBodyUnder(painter, window);
    paintFace(painter, box, Look::Down, 4);
    painter.fillPath(emblemAt(box.adjusted(2, 1.5, -2, -2.5)), QColor::fromRgb(kAmber));
}

} // namespace

Drawings areaDrawings() {
    Drawings all;
    all.push_back(drawingFor("main", {N::mainIMG}, paintBody));
    all.back().shaped = true;
    all.push_back(drawingFor("screen", {N::ScreenIMG}, paintScreen));
    all.push_back(card("infowin", N::infoWin, 14, Icon::Note));
    all.push_back(plainCard("plwin", N::fxWin, 16));
    all.push_back(card("poswin", N::poswin, 14, Icon::Clock));
    all.push_back(card("volwin", N::volwin, 13, Icon::Speaker));
    all.push_back(card("balwin", N::balwin, 13, Icon::Balance));
    all.push_back(fold("qpl_exp", N::qpl_exp, Icon::ChevronUp));
    all.push_back(fold("qpl_col", N::qpl_col, Icon::ChevronDown));
    all.push_back(drawingFor("icon", {N::iconIMG}, paintWindowIcon));
    return all;
}

} // namespace tovik::skinart
