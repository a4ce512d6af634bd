// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard on a window: which element has it, and who gets a key.
#include "ui/qt/KeyCodes.h"
#include "ui/qt/SkinWindow.h"
#include "ui/qt/WindowAccess.h"

#include <utility>

namespace tovik::ui {

void SkinWindow::setAccess(std::vector<AccessPlace> places, AccessInput& input, Colour ring) {
    ringColour_ = ring;
    focus_ = std::make_unique<ElementFocus>(
        *this, controls_, AccessList(elements_, std::move(places)), input, dispatcher_, [this] {
            showRing();
            announce(true);
        });
}

QRect SkinWindow::onScreen(const Box& box) const {
    const QRect place = scale_.pixels(box);
    return {mapToGlobal(place.topLeft()) + untold_, place.size()};
}

void SkinWindow::announce(bool focusMoved) {
    if (!QAccessible::isActive() || !focus_) {
        return;
    }
    auto* const access = dynamic_cast<WindowAccess*>(QAccessible::queryAccessibleInterface(this));
    if (access == nullptr) {
        return;
    }
    if (focusMoved) {
        access->announceFocus();
    } else {
        access->announceChanges();
    }
}

void SkinWindow::showRing() {
    const auto place = focus_ ? focus_->focused() : std::nullopt;
    const auto box = place ? std::optional(focus_->places().box(*place)) : std::nullopt;
    if (ring_ == box) {
        return;
    }
    image_.setRing(box, ringColour_);
    for (const std::optional<Box>& one : {std::exchange(ring_, box), box}) {
        if (one) {
            redraw(*one);
        }
    }
}

void SkinWindow::followFocus(const QObject* control, QEvent::Type change) {
    const auto slot = focus_ ? controls_.slotOf(control) : std::nullopt;
    if (slot && change == QEvent::FocusIn) {
        focus_->entered(*slot);
    }
}

void SkinWindow::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    // Another window, or a menu, gives it back.
    const Qt::FocusReason reason = event->reason();
    if (focus_ && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
        reason != Qt::MenuBarFocusReason) {
        focus_->left();
    }
}

void SkinWindow::keyPressEvent(QKeyEvent* event) {
    if (takesText(focusWidget()) && event->key() != Qt::Key_Escape) {
        // What is typed there is no shortcut, nor is a key that the field has no use for.
        event->ignore();
        return;
    }
    const KeyEvent key = keyEventOf(*event);
    bool used = focus_ && !input_.claimsKey(key) && focus_->key(*event);
    if (!used) {
        dispatcher_.run([&] { used = input_.keyDown(key); });
    }
    event->setAccepted(used);
}

bool SkinWindow::focusNextPrevChild(bool next) {
    return focus_ && focus_->step(next);
}

} // namespace tovik::ui
