// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/WindowSight.h"

#include <QEvent>
#include <QWindow>
#include <utility>

namespace tovik::ui {

WindowSight::WindowSight(QWidget& widget, std::function<void()> cameInSight)
    : widget_(widget), cameInSight_(std::move(cameInSight)) {
    widget_.installEventFilter(this);
}

bool WindowSight::seen(const QWidget& widget) {
    const QWindow* const window = widget.windowHandle();
    return widget.isVisible() && !widget.isMinimized() && window != nullptr && window->isExposed();
}

bool WindowSight::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
        // The window of the window system comes later than the widget, and may be replaced.
        if (QWindow* const window = widget_.windowHandle(); window != nullptr) {
            window->installEventFilter(this);
        }
        [[fallthrough]];
    case QEvent::Expose:
    case QEvent::WindowStateChange:
        if (seen(widget_)) {
            cameInSight_();
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tovik::ui
