// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogPlace.h"

#include "ui/qt/OnAScreen.h"
#include "window/WindowPlaces.h"

#include <QEvent>
#include <QGuiApplication>
#include <QStyle>

namespace tovik::dialogs {

DialogPlace::DialogPlace(QWidget& dialog, const player::Core& core)
    : QObject(&dialog), dialog_(dialog), core_(core) {
    if (QGuiApplication::platformName().startsWith(u"wayland")) {
        return;
    }
    dialog.installEventFilter(this);
    if (const auto place = window::keptPlace(core.state, dialog.objectName().toStdString())) {
        if (!dialog.testAttribute(Qt::WA_Resized)) {
            dialog.adjustSize();
        }
        // The place is that of what is in the frame: the frame is not known yet.
        const QPoint title(0, dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight));
        const QPoint corner = ui::onAScreen(QPoint(place->left, place->top) - title,
                                            dialog.size() + QSize(0, title.y()));
        dialog.setGeometry(QRect(corner + title, dialog.size()));
    }
}

bool DialogPlace::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Move && dialog_.isVisible()) {
        window::notePlace(core_, dialog_.objectName().toStdString(),
                          {.left = dialog_.geometry().left(), .top = dialog_.geometry().top()});
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tovik::dialogs
