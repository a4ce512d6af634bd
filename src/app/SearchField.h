// SPDX-License-Identifier: GPL-3.0-or-later
// The field that takes the words of a search. Interface thread.
#pragma once

#include <functional>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

namespace tovik::app {

/// Its text is selected as a whole when it is entered, by a click as well, so that typing replaces
/// the prompt that stands in it; nothing is when it is left. Who leaves it but by Tab hands the
/// keyboard back.
class SearchField final : public QLineEdit {
public:
    /// `handBack` gives the keyboard to who should have it then; `typed` takes the text each time
    /// that a key has put a character into it.
    SearchField(std::function<void()> handBack, std::function<void(const QString&)> typed)
        : handBack_(std::move(handBack)), typed_(std::move(typed)) {
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
        const bool toSearch = std::exchange(searches_, false);
        if (event->reason() == Qt::MouseFocusReason || toSearch) {
            QMetaObject::invokeMethod(
                this, [this] { handBack_(); }, Qt::QueuedConnection);
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        QLineEdit::keyPressEvent(event);
        constexpr Qt::KeyboardModifiers kCommand = Qt::ControlModifier | Qt::AltModifier;
        const QString typed = event->text();
        if (!typed.isEmpty() && typed.front().isPrint() && !(event->modifiers() & kCommand)) {
            search();
        }
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        QLineEdit::inputMethodEvent(event);
        if (!event->commitString().isEmpty()) {
            search();
        }
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        selectAll();
    }

private:
    void search() {
        // Until the search has the keyboard, further keys arrive here, too.
        searches_ = true;
        typed_(text());
    }

    std::function<void()> handBack_;
    std::function<void(const QString&)> typed_;
    bool searches_ = false; ///< who gets the keyboard next is the search
};

} // namespace tovik::app
