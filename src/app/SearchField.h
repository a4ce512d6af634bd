// SPDX-License-Identifier: GPL-3.0-or-later
// The field that takes the words of a search. Interface thread.
#pragma once

#include <QLineEdit>

namespace tovik::app {

/// Its text is selected as a whole when it is entered, by a click as well, so that typing replaces
/// the prompt that stands in it; nothing is when it is left.
class SearchField final : public QLineEdit {
public:
    SearchField() { setFocusPolicy(Qt::ClickFocus); }

protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        selectAll();
    }

    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        deselect();
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        selectAll();
    }
};

} // namespace tovik::app
