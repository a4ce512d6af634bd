// SPDX-License-Identifier: GPL-3.0-or-later
#include "Body.h"
#include "Emblem.h"
#include "Families.h"
#include "Grounds.h"
#include "Icons.h"
#include "PixelArt.h"
#include "Shapes.h"

#include <array>
#include <cmath>
#include <QTransform>

namespace tovik::skinart {

namespace {

using N = window::MainElement;

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
        const double radius = 18 + ring * 6;
        painter.setPen(
            QPen(QColor(125, 230, 255, 84 - ring * 18), 1.5, Qt::SolidLine, Qt::RoundCap));
        const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
        painter.drawArc(box, (-40) * 16, 80 * 16);
        painter.drawArc(box, (180 - 40) * 16, 80 * 16);
    }
    painter.fillPath(emblemAt({centre.x() - 12, centre.y() - 12, 24, 24}),
                     QColor(125, 230, 255, 150));
}

/// Small signs before the three lines of words: channels, stream, volume.
void paintFieldSigns(QPainter& painter) {
    const std::array<PixelRows, 3> signs{
        PixelRows{".XXXX.", "X....X", "X....X", "XX..XX", "XX..XX", "XX..XX"},
        PixelRows{"...X..", ".X.X..", ".X.X.X", "XX.X.X", ".X.X.X", ".X...."},
        PixelRows{"..X...", ".XX..X", "XXX.X.", "XXX.X.", ".XX..X", "..X..."},
    };
    int top = 58;
    for (const PixelRows& sign : signs) {
        paintPixels(painter, {120, top}, sign, kGlowDim);
        top += 10;
    }
}

void paintScreen(QPainter& painter) {
    const QRectF window = rectOf({N::ScreenIMG});
    const QRectF box(QPointF(0, 0), window.size());
    paintGlass(painter, box, kGlassRadius);
    paintGlassOrnament(painter);
    paintFieldSigns(painter);
    // The bed of the spectrum is black, as the spectrum paints it.
    const QRectF bed = rectOf({N::Picture1}).translated(-window.topLeft());
    painter.fillRect(bed.adjusted(-1, -1, 1, 1), QColor::fromRgb(kGlassLine));
    painter.fillRect(bed, Qt::black);
}

/// A card whose title leaves room for a symbol at its right end.
Drawing card(const char* name, N element, double head, Icon icon) {
    const QRectF window = rectOf({element});
    const auto paint = [window, head, icon](QPainter& painter) {
        const QRectF box(QPointF(0, 0), window.size());
        paintCard(painter, box, head);
        paintIcon(painter, icon, {box.right() - 11, head / 2}, 11, kInkSoft, false);
    };
    return cutFromBody(window, drawingFor(name, {element}, paint));
}

Drawing plainCard(const char* name, N element, double head) {
    const QRectF window = rectOf({element});
    return cutFromBody(window, drawingFor(name, {element}, [window, head](QPainter& painter) {
                           paintCard(painter, QRectF(QPointF(0, 0), window.size()), head);
                       }));
}

/// Quarters of the track, and what lies between, under the groove of the position.
Drawing positionCard() {
    Drawing drawing = card("poswin", N::poswin, kPositionHead, Icon::Clock);
    drawing.paint = [plain = drawing.paint](QPainter& painter) {
        plain(painter);
        constexpr int kMarks = 20;
        constexpr double kLeft = 10; // where the mark's middle stands at the begin
        constexpr double kWay = 242;
        for (int mark = 0; mark <= kMarks; ++mark) {
            const bool quarter = mark % (kMarks / 4) == 0;
            const double x = std::round(kLeft + kWay * mark / kMarks);
            painter.fillRect(QRectF(x, 31, 1, quarter ? 5 : 3),
                             QColor::fromRgb(quarter ? kInkSoft : kCardLine));
        }
    };
    return drawing;
}

/// The button that folds the quick list out, or back: it lies on the head of a card. With the list
/// open its place is high up in the heading, so it fills the lower part only.
Drawing fold(const char* name, N store, Icon icon, double top) {
    const auto paint = [icon, top](QPainter& painter) {
        const QRectF face(0, top, 14, 10 - top);
        painter.fillPath(rounded(face, 3), downwards(face, {kFaceUp.bottom, kInk}));
        paintIcon(painter, icon, face.center(), 10, kWhite, false);
    };
    return cutFrom(paintCardUnder(N::fxWin, kListHead, {N::qpl_but}),
                   drawingFor(name, {N::qpl_but}, {store}, paint));
}

void paintWindowIcon(QPainter& painter) {
    const QRectF window = rectOf({N::iconIMG});
    const QRectF box(QPointF(0, 0), window.size());
    paintFace(painter, box, Look::Down, 4);
    painter.fillPath(emblemAt(box.adjusted(2, 1.5, -2, -2.5)), QColor::fromRgb(kAmber));
}

} // namespace

Drawings areaDrawings() {
    Drawings all;
    all.push_back(drawingFor("main", {N::mainIMG}, paintBody));
    all.back().cut = Cut::Outside;
    all.push_back(
        cutFromBody(rectOf({N::ScreenIMG}), drawingFor("screen", {N::ScreenIMG}, paintScreen)));
    all.push_back(card("infowin", N::infoWin, kPositionHead, Icon::Note));
    all.push_back(plainCard("plwin", N::fxWin, kListHead));
    all.push_back(positionCard());
    all.push_back(card("volwin", N::volwin, kVolumeHead, Icon::Speaker));
    all.push_back(card("balwin", N::balwin, kVolumeHead, Icon::Balance));
    all.push_back(fold("qpl_exp", N::qpl_exp, Icon::ChevronUp, 0));
    all.push_back(fold("qpl_col", N::qpl_col, Icon::ChevronDown, 2));
    all.push_back(
        cutFromBody(rectOf({N::iconIMG}), drawingFor("icon", {N::iconIMG}, paintWindowIcon)));
    return all;
}

} // namespace tovik::skinart
