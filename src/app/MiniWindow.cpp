// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MiniWindow.h"

#include "window/MainRows.h"

#include <utility>

namespace tovik::app {

void MiniWindow::attach(window::frmMiniMode& mini, std::function<void()> cameInSight) {
    mini_ = &mini;
    cameInSight_ = std::move(cameInSight);
}

void MiniWindow::detach() {
    screen_.take();
    mini_ = nullptr;
}

bool MiniWindow::shown() const {
    return screen_.widget() != nullptr && screen_.widget()->isVisible();
}

void MiniWindow::make() {
    if (screen_.widget() != nullptr || mini_ == nullptr) {
        return;
    }
    auto widget = std::make_unique<ui::SkinWindow>(mini_->elements, mini_->pictures(), mini_->input,
                                                   dispatcher_);
    // The caption rotates; the name of the window does not.
    widget->setAccessibleName(QStringLiteral("Tovik"));
    widget->setWindowRole(QStringLiteral("mini"));
    widget->setAccess(window::miniAccess(), mini_->actions, window::rows::kAmber);
    screen_.give(std::move(widget), cameInSight_);
}

void MiniWindow::show() {
    make();
    if (!placed_ && firstPlace) {
        const QPoint place = firstPlace();
        moveTo(place.x(), place.y());
    }
    placed_ = true;
    OnScreen::show();
    screen_.widget()->activateWindow();
}

void MiniWindow::hide() {
    if (screen_.widget() != nullptr) {
        OnScreen::hide();
    }
}

void MiniWindow::bringToFront(const std::string& token) {
    make();
    OnScreen::bringToFront(token);
}

void MiniWindow::setCaption(const std::string& caption) {
    make();
    OnScreen::setCaption(caption);
}

void MiniWindow::setTaskbarButton(bool shown) {
    // Nobody wants it yet: it is told again when it is.
    if (screen_.widget() != nullptr) {
        OnScreen::setTaskbarButton(shown);
    }
}

void MiniWindow::setTopmost(bool topmost) {
    if (screen_.widget() != nullptr) {
        OnScreen::setTopmost(topmost);
    }
}

void MiniWindow::moveTo(int left, int top) {
    make();
    placed_ = true;
    OnScreen::moveTo(left, top);
}

ui::RegionWindow* MiniWindow::shape() {
    make();
    return OnScreen::shape();
}

} // namespace tovik::app
