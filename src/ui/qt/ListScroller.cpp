// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ListScroller.h"

#include "ui/qt/Reduction.h"

#include <algorithm>
#include <QMouseEvent>
#include <QTimerEvent>
#include <QtMath>
#include <utility>

namespace tovik::ui {

namespace {

constexpr QSize kPicture(91, 40);
constexpr QRect kUp(0, 0, 13, 21);
constexpr QRect kUpPressed(13, 0, 13, 21);
constexpr QRect kTrack(26, 0, 13, 40);
constexpr QRect kDown(39, 0, 13, 21);
constexpr QRect kDownPressed(52, 0, 13, 21);
constexpr QRect kThumb(65, 0, 13, 40);
constexpr QRect kThumbPressed(78, 0, 13, 40);

constexpr int kDelayMs = 200;
constexpr int kRepeatMs = 50;

} // namespace

ListScroller::ListScroller(Source source) : QScrollBar(Qt::Vertical), source_(std::move(source)) {}

void ListScroller::setFactor(double factor) {
    factor_ = factor;
    updateGeometry();
}

QSize ListScroller::sizeHint() const {
    return hasPicture() ? QSize(scaled(kTrack.width()), scaled(2 * kUp.height()))
                        : QScrollBar::sizeHint();
}

const PixelImage* ListScroller::picture(int factor) const {
    const PixelImage* const image = source_(factor);
    const bool whole = image != nullptr && image->width >= kPicture.width() * image->density &&
                       image->height >= kPicture.height() * image->density;
    return whole ? image : nullptr;
}

int ListScroller::scaled(int pixels) const {
    return qRound(pixels * factor_);
}

bool ListScroller::hasButtons() const {
    return height() >= scaled(2 * kUp.height() + 2 * kThumb.height());
}

QRect ListScroller::track() const {
    const int button = hasButtons() ? scaled(kUp.height()) : 0;
    return {0, button, width(), height() - 2 * button};
}

QRect ListScroller::thumb() const {
    const QRect room = track();
    const int size = std::min(scaled(kThumb.height()), room.height() / 2);
    const int span = maximum() - minimum();
    const auto passed = std::int64_t{value() - minimum()} * (room.height() - size);
    return {0, room.top() + (span > 0 ? static_cast<int>(passed / span) : 0), width(), size};
}

ListScroller::Part ListScroller::partAt(int y) const {
    const QRect room = track();
    const QRect bar = thumb();
    if (y < room.top()) {
        return Part::up;
    }
    if (y > room.bottom()) {
        return Part::down;
    }
    if (y < bar.top()) {
        return Part::before;
    }
    return y > bar.bottom() ? Part::after : Part::thumb;
}

void ListScroller::paintEvent(QPaintEvent* event) {
    const double ratio = devicePixelRatioF();
    const int factor = wholeFactor(factor_ * ratio);
    const PixelImage* const found = picture(factor);
    if (found == nullptr) {
        QScrollBar::paintEvent(event);
        return;
    }
    // Composed like the window that it stands on, and reduced as one with it.
    const double larger = factor / factor_;
    const QPoint place = mapTo(window(), QPoint());
    const QPoint origin(qRound(place.x() * larger), qRound(place.y() * larger));
    QImage image(qCeil(width() * larger), qCeil(height() * larger),
                 QImage::Format_ARGB32_Premultiplied);
    QPainter composer(&image);
    composer.setCompositionMode(QPainter::CompositionMode_Source);
    drawPieces(composer, *found, larger);
    composer.end();
    QPainter painter(this);
    painter.translate(-place);
    drawReduced(painter,
                {.image = image,
                 .origin = origin,
                 .factor = factor,
                 .scale = factor_ * ratio,
                 .ratio = ratio},
                rect().translated(place));
}

void ListScroller::drawPieces(QPainter& painter, const PixelImage& picture, double factor) const {
    const QImage pieces(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                        picture.height, QImage::Format_ARGB32_Premultiplied);
    const auto draw = [&](const QRect& place, const QRect& piece) {
        const QPoint corner(qRound(place.left() * factor), qRound(place.top() * factor));
        const QPoint end(qRound((place.right() + 1) * factor),
                         qRound((place.bottom() + 1) * factor));
        painter.drawImage(QRect(corner, end - QPoint(1, 1)), pieces,
                          QRect(piece.topLeft() * picture.density, piece.size() * picture.density));
    };
    // Also behind the buttons, whose corners may be transparent.
    draw(rect(), kTrack);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QRect room = track();
    if (hasButtons()) {
        draw(QRect(0, 0, width(), room.top()), held_ == Part::up ? kUpPressed : kUp);
        draw(QRect(0, room.bottom() + 1, width(), room.top()),
             held_ == Part::down ? kDownPressed : kDown);
    }
    if (maximum() > minimum()) {
        const bool pressed = held_ == Part::thumb || held_ == Part::before || held_ == Part::after;
        draw(thumb(), pressed ? kThumbPressed : kThumb);
    }
}

void ListScroller::mousePressEvent(QMouseEvent* event) {
    if (!hasPicture()) {
        QScrollBar::mousePressEvent(event);
        return;
    }
    if (event->button() != Qt::LeftButton || maximum() == minimum()) {
        return;
    }
    const int y = event->position().toPoint().y();
    held_ = partAt(y);
    if (held_ == Part::thumb) {
        pressedAt_ = y - thumb().top();
    } else {
        pressedAt_ = y;
        repeat_.start(kDelayMs, this);
        step();
    }
    update();
}

void ListScroller::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void ListScroller::mouseMoveEvent(QMouseEvent* event) {
    if (!hasPicture()) {
        QScrollBar::mouseMoveEvent(event);
        return;
    }
    const QRect room = track();
    const int way = room.height() - thumb().height();
    if (held_ == Part::thumb && way > 0) {
        const int top = event->position().toPoint().y() - pressedAt_ - room.top();
        const auto moved = std::int64_t{std::clamp(top, 0, way)} * (maximum() - minimum());
        setValue(minimum() + static_cast<int>((moved + way / 2) / way));
    }
}

void ListScroller::mouseReleaseEvent(QMouseEvent* event) {
    if (!hasPicture()) {
        QScrollBar::mouseReleaseEvent(event);
    } else if (event->button() == Qt::LeftButton) {
        letGo();
    }
}

void ListScroller::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeat_.timerId()) {
        QScrollBar::timerEvent(event);
        return;
    }
    repeat_.start(kRepeatMs, this);
    step();
}

void ListScroller::step() {
    switch (held_) {
    case Part::up:
        setValue(value() - singleStep());
        break;
    case Part::down:
        setValue(value() + singleStep());
        break;
    case Part::before:
        if (thumb().top() > pressedAt_) {
            setValue(value() - pageStep());
            break;
        }
        repeat_.stop();
        break;
    case Part::after:
        if (thumb().bottom() < pressedAt_) {
            setValue(value() + pageStep());
            break;
        }
        repeat_.stop();
        break;
    case Part::thumb:
    case Part::none:
        repeat_.stop();
        break;
    }
}

void ListScroller::letGo() {
    held_ = Part::none;
    repeat_.stop();
    update();
}

} // namespace tovik::ui
