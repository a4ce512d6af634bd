// SPDX-License-Identifier: GPL-3.0-or-later
// The scroll bar of a list, made of the pieces of a picture. Interface thread.
#pragma once

#include "ui/PictureStore.h"

#include <functional>
#include <QBasicTimer>
#include <QPainter>
#include <QScrollBar>

namespace tovik::ui {

/// The picture is 91x40: from the left the up button and the same pressed (13x21 each), the track
/// (13x40), the down button and the same pressed (13x21), the thumb and the same pressed (13x40).
/// As long as there is no such picture it is a plain scroll bar. A bar that is too short for both
/// buttons and a thumb with room to move goes without the buttons.
///
/// A button or the track that is held scrolls at once, again after 200 ms and then every 50 ms.
class ListScroller final : public QScrollBar {
public:
    /// Asked each time, with the pixels of the screen that one of the picture takes along a side;
    /// may give null. What it gives is not kept.
    using Source = std::function<const PixelImage*(int factor)>;

    explicit ListScroller(Source source);

    /// Widget pixels for one pixel of the picture.
    void setFactor(double factor);

    [[nodiscard]] QSize sizeHint() const override;

    /// The thumb, from the bar's top left corner; for who looks at it from outside.
    [[nodiscard]] QRect thumb() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Part : std::uint8_t { none, up, down, before, after, thumb };

    /// Null, unless it is a whole one.
    [[nodiscard]] const PixelImage* picture(int factor) const;

    [[nodiscard]] bool hasPicture() const { return picture(1) != nullptr; }

    /// Draws the bar on an image where one of its pixels is that many along a side.
    void drawPieces(QPainter& painter, const PixelImage& picture, double factor) const;
    [[nodiscard]] Part partAt(int y) const;
    [[nodiscard]] QRect track() const;
    [[nodiscard]] bool hasButtons() const;
    [[nodiscard]] int scaled(int pixels) const;
    /// One step of what is held; ends paging when the thumb has come to the pointer.
    void step();
    void letGo();

    Source source_;
    double factor_ = 1;
    Part held_ = Part::none;
    int pressedAt_ = 0; ///< of the track: the pointer's place; of the thumb: its place in it
    QBasicTimer repeat_;
};

} // namespace tovik::ui
