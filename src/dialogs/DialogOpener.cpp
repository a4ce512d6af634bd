// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogOpener.h"

#include "dialogs/DialogPlace.h"

#include <algorithm>
#include <QApplication>

namespace tovik::dialogs {

namespace {

void bringToFront(QWidget& dialog) {
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
}

} // namespace

void DialogOpener::attach(const DialogLogic& logic, QWidget& parent) {
    logic_.emplace(logic);
    parent_ = &parent;
}

void DialogOpener::open(window::WindowId window) {
    const auto row = std::ranges::find(table_, window, &DialogRow::window);
    if (row == table_.end() || parent_.isNull()) {
        return;
    }
    QPointer<Dialog>& made = made_[window];
    if (Dialog* const open = made.data(); open != nullptr) {
        open->load();
        bringToFront(*open);
        return;
    }
    // What is opened from a dialog that holds up the others stands in front of that one.
    QWidget* const front = QApplication::activeModalWidget();
    Dialog& dialog = row->make({.logic = *logic_,
                                .dispatcher = dispatcher_,
                                .parent = front != nullptr ? front : parent_.data()});
    made = &dialog;
    dialog.load();
    new DialogPlace(dialog, logic_->core);
    if (row->kind == DialogKind::beside) {
        bringToFront(dialog);
        return;
    }
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.exec();
}

} // namespace tovik::dialogs
