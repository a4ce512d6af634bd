// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogPlace.h"

#include "ui/qt/OnAScreen.h"
#include "window/WindowPlaces.h"

#include <QEvent>
#include <QGuiApplication>
#include <QStyle>

namespace tovik::dialogs {

namespace {

/// The place is that of what is in the frame, and the frame is not known yet.
int titleHeight(const QWidget& dialog) {
    return dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

} // namespace

DialogPlace::DialogPlace(QWidget& dialog, const player::Core& core)
    : QObject(&dialog), dialog_(dialog), core_(core), name_(dialog.objectName().toStdString()),
      hasPlaces_(!QGuiApplication::platformName().startsWith(u"wayland")) {
    dialog.installEventFilter(this);
    takeSize();
    if (hasPlaces_) {
        takePlace();
    }
}

void DialogPlace::takeSize() {
    const auto size = window::keptSize(core_.state, name_);
    if (!size) {
        return;
    }
    const auto place = window::keptPlace(core_.state, name_).value_or(window::ScreenPlace());
    const QSize room = ui::roomAt(QPoint(place.left, place.top)) - QSize(0, titleHeight(dialog_));
    dialog_.resize(QSize(size->width, size->height).boundedTo(room));
}

void DialogPlace::takePlace() {
    const auto place = window::keptPlace(core_.state, name_);
    if (!place) {
        return;
    }
    if (!dialog_.testAttribute(Qt::WA_Resized)) {
        dialog_.adjustSize();
    }
    const QPoint title(0, titleHeight(dialog_));
    const QPoint corner = ui::onAScreen(QPoint(place->left, place->top) - title,
                                        dialog_.size() + QSize(0, title.y()));
    dialog_.setGeometry(QRect(corner + title, dialog_.size()));
}

bool DialogPlace::isOnScreen() const {
    return dialog_.isVisible() && !dialog_.isMaximized() &&
           !dialog_.testAttribute(Qt::WA_DontShowOnScreen);
}

bool DialogPlace::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Move && hasPlaces_ && isOnScreen()) {
        window::notePlace(core_, name_,
                          {.left = dialog_.geometry().left(), .top = dialog_.geometry().top()});
    } else if (event->type() == QEvent::Resize && isOnScreen()) {
        window::noteSize(core_, name_, {.width = dialog_.width(), .height = dialog_.height()});
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tovik::dialogs
