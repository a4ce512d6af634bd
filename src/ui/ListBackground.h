// SPDX-License-Identifier: GPL-3.0-or-later
// Where the picture behind the rows of a list lies. Any thread.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tovik::ui {

/// How the picture is laid out. Stretching wins over centring.
struct ListBackground {
    bool CenterBackgroundPicture = false;
    bool StretchBackgroundPicture = false;
    bool LockBackgroundPicture = false; ///< it stays where it is while the rows scroll

    friend bool operator==(const ListBackground&, const ListBackground&) = default;
};

/// The picture's place in the view, in pixels. `scrolled`: how far the rows have gone up.
[[nodiscard]] inline QRect backgroundPlace(const ListBackground& how, QSize picture, QSize view,
                                           int scrolled) {
    QRect place(QPoint(0, 0), how.StretchBackgroundPicture ? view : picture);
    if (how.CenterBackgroundPicture && !how.StretchBackgroundPicture) {
        place.moveTopLeft(
            {(view.width() - picture.width()) / 2, (view.height() - picture.height()) / 2});
    }
    return how.LockBackgroundPicture ? place : place.translated(0, -scrolled);
}

} // namespace tovik::ui
