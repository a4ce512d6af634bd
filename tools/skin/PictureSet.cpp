// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureSet.h"

#include "base/RuntimeError.h"
#include "Body.h"
#include "Families.h"
#include "ui/KeyColour.h"

#include <cmath>

namespace tovik::skinart {

namespace {

/// A pixel belongs to the window if its middle does: it is window or nothing, never a mixture.
void cutOut(QImage& image, const QPainterPath& outline, int scale) {
    const QRgb key = keyPixel();
    QImage inside(image.size(), QImage::Format_ARGB32);
    inside.fill(0);
    QPainter painter(&inside);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.scale(scale, scale);
    painter.fillPath(outline, Qt::black);
    painter.end();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(inside.pixel(x, y)) == 0) {
                image.setPixel(x, y, key);
            }
        }
    }
}

/// Below this a shadow's end is not worth a pixel of ours on a ground that may be another's.
constexpr int kFaintest = 20;

/// Takes out what the drawing itself does not touch.
void cutGround(QImage& image, const Drawing& drawing, int scale) {
    QImage figure(image.size(), QImage::Format_ARGB32_Premultiplied);
    figure.fill(Qt::transparent);
    QPainter painter(&figure);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    drawing.paint(painter);
    painter.end();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(figure.pixel(x, y)) < kFaintest) {
                image.setPixel(x, y, keyPixel());
            }
        }
    }
}

void append(Drawings& all, Drawings&& family) {
    for (Drawing& drawing : family) {
        all.push_back(std::move(drawing));
    }
}

} // namespace

ui::Box boxOf(Spot spot) {
    for (const auto& place : window::mainLayout()) {
        if (place.name == spot.name && spot.index >= place.first &&
            spot.index < place.first + place.count) {
            return ui::elementAt(place, spot.index - place.first).box();
        }
    }
    throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
}

QRectF rectOf(Spot spot) {
    const ui::Box box = boxOf(spot);
    return {std::floor(box.left), std::floor(box.top), std::floor(box.width),
            std::floor(box.height)};
}

Drawing drawingFor(std::string name, Spot shown, std::function<void(QPainter&)> paint) {
    return drawingFor(std::move(name), shown, shown, std::move(paint));
}

Drawing drawingFor(std::string name, Spot shown, Spot kept, std::function<void(QPainter&)> paint) {
    return {.name = std::move(name),
            .size = rectOf(shown).size().toSize(),
            .paint = std::move(paint),
            .spot = kept};
}

Drawing cutFrom(std::function<void(QPainter&)> ground, Drawing drawing) {
    drawing.cut = Cut::Ground;
    drawing.ground = std::move(ground);
    return drawing;
}

Drawing cutFromBody(const QRectF& place, Drawing drawing) {
    return cutFrom([place](QPainter& painter) { paintBodyUnder(painter, place); },
                   std::move(drawing));
}

QRgb keyPixel() noexcept {
    const ui::Colour key = ui::keyColour(ui::kWindowDepth);
    return qRgb(key.red, key.green, key.blue);
}

QImage rendered(const Drawing& drawing, int scale) {
    QImage image(drawing.size * scale, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    if (drawing.ground) {
        drawing.ground(painter);
    }
    drawing.paint(painter);
    painter.end();
    if (drawing.cut == Cut::Outside) {
        cutOut(image, drawing.outline != nullptr ? drawing.outline() : bodyOutline(), scale);
    } else if (drawing.cut == Cut::Ground) {
        cutGround(image, drawing, scale);
    }
    return image;
}

Drawings skinDrawings() {
    Drawings all;
    append(all, areaDrawings());
    append(all, sourceDrawings());
    append(all, glyphDrawings());
    append(all, digitDrawings());
    append(all, tabDrawings());
    append(all, transportDrawings());
    append(all, modeDrawings());
    append(all, indicatorDrawings());
    append(all, flatButtonDrawings());
    return all;
}

Drawings miniSkinDrawings() {
    Drawings all = miniDrawings();
    append(all, miniDigitDrawings());
    return all;
}

Drawings miniWindowDrawings() {
    Drawings all = miniWindowPictures();
    append(all, miniSignDrawings());
    return all;
}

Drawings windowDrawings() {
    Drawings all;
    append(all, barDrawings());
    append(all, equalizerDrawings());
    return all;
}

} // namespace tovik::skinart
