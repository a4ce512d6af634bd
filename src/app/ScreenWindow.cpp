// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ScreenWindow.h"

#include "ui/qt/InitialState.h"
#include "ui/qt/OnAScreen.h"

#include <QGuiApplication>
#include <QWindow>
#include <utility>

namespace tovik::app {

ScreenWindow::~ScreenWindow() = default;

void ScreenWindow::give(std::unique_ptr<ui::SkinWindow> widget, std::function<void()> cameInSight) {
    widget_ = std::move(widget);
    sight_ = std::make_unique<ui::WindowSight>(*widget_, std::move(cameInSight));
}

void ScreenWindow::take() {
    sight_.reset();
    widget_.reset();
}

void ScreenWindow::show() {
    widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
    if (widget_->windowHandle() != nullptr) {
        ui::beginAsWindow(*widget_->windowHandle());
    }
    widget_->show();
}

bool ScreenWindow::visible() const {
    return widget_ != nullptr && ui::WindowSight::seen(*widget_);
}

int ScreenWindow::density() const {
    return widget_ != nullptr ? widget_->density() : 1;
}

void ScreenWindow::bringToFront(const std::string& token) {
    // Where it finds it, a Wayland desktop's part of Qt takes it from there.
    if (!token.empty() && QGuiApplication::platformName().startsWith(u"wayland")) {
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
    }
    show();
    widget_->raise();
    widget_->activateWindow();
}

void ScreenWindow::setTaskbarButton(bool shown) {
    if ((widget_->windowType() == Qt::Tool) == !shown) {
        return;
    }
    // Changing the kind of a window takes it off the screen.
    const bool visible = widget_->isVisible();
    widget_->setWindowFlag(Qt::Tool, !shown);
    widget_->setVisible(visible);
}

void ScreenWindow::setTopmost(bool topmost) {
    if (widget_->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost) {
        return;
    }
    const Qt::WindowFlags flags = widget_->windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost);
    if (widget_->windowHandle() == nullptr) {
        widget_->setWindowFlags(flags);
        return;
    }
    // The widget would take itself off the screen for it; the window system need not.
    widget_->overrideWindowFlags(flags);
    widget_->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
}

bool ScreenWindow::tellsPlace() {
    return !QGuiApplication::platformName().startsWith(u"wayland");
}

void ScreenWindow::moveTo(int left, int top) {
    widget_->move(ui::onAScreen({left, top}, widget_->size()));
}

} // namespace tovik::app
