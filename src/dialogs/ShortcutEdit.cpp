// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ShortcutEdit.h"

#include "ui/qt/KeyCodes.h"

#include <algorithm>
#include <array>

namespace tovik::dialogs {

namespace {

constexpr std::array kNotTaken = {Qt::Key_Escape, Qt::Key_Tab,     Qt::Key_Backtab,
                                  Qt::Key_Shift,  Qt::Key_Control, Qt::Key_Alt,
                                  Qt::Key_Meta,   Qt::Key_AltGr,   Qt::Key_CapsLock};

bool takes(const QKeyEvent& event) {
    return std::ranges::find(kNotTaken, event.key()) == kNotTaken.end();
}

} // namespace

ShortcutEdit::ShortcutEdit(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
}

bool ShortcutEdit::event(QEvent* event) {
    // What would be a mnemonic of the dialog is a key like any other here.
    if (event->type() == QEvent::ShortcutOverride && takes(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void ShortcutEdit::keyPressEvent(QKeyEvent* event) {
    if (!takes(*event)) {
        event->ignore();
        return;
    }
    if (keys_) {
        keys_(menus::acceleratorKeyOf(ui::keyEventOf(*event)));
    }
}

} // namespace tovik::dialogs
