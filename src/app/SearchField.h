// SPDX-License-Identifier: GPL-3.0-or-later
// The field that takes the words of a search. Interface thread.
#pragma once

#include <functional>
#include <QLineEdit>
#include <utility>

namespace tovik::app {

/// Its text is selected as a whole when it is entered, by a click as well, so that typing replaces
/// the prompt that stands in it; nothing is when it is left. Who leaves it but by Tab hands the
/// keyboard back.
class SearchField final : public QLineEdit {
public:
    /// `handBack` gives the keyboard to who should have it then.
    explicit SearchField(std::function<void()> handBack) : handBack_(std::move(handBack)) {
        setFocusPolicy(Qt::ClickFocus);
    }

protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        selectAll();
    }

    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        deselect();
        // The one that took it keeps it until this event is through.
        if (event->reason() == Qt::MouseFocusReason) {
            QMetaObject::invokeMethod(
                this, [this] { handBack_(); }, Qt::QueuedConnection);
        }
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        selectAll();
    }

private:
    std::function<void()> handBack_;
};

} // namespace tovik::app
