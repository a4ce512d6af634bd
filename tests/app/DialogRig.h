// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs that hold up the player, on a screen without pictures: what a test does with one runs
// while it is open.
#pragma once

#include "app/AppRig.h"
#include "dialogs/DialogOpener.h"

#include <functional>
#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QtTest>
#include <stdexcept>

namespace tovik::test {

class DialogRig : public AppRig {
protected:
    void begin() {
        start();
        opener_.attach(player().dialogs(), parent_);
        windows_.next = &opener_;
    }

    /// Opens a window, acts on it and closes it, if that did not.
    void with(window::WindowId id, const std::function<void(QDialog&)>& act) {
        acted_ = 0;
        next(act);
        opener_.open(id);
        EXPECT_GE(acted_, 1) << "the dialog did not open"; // one that it opens counts, too
    }

    /// The same for what opens next.
    void next(const std::function<void(QDialog&)>& act) {
        QTimer::singleShot(0, &parent_, [this, act] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            ++acted_;
            act(*dialog);
            dialog->close();
        });
    }

    template <typename Widget>
    [[nodiscard]] static Widget& control(QDialog& dialog, const QString& name) {
        auto* const widget = dialog.findChild<Widget*>(name);
        if (widget == nullptr) {
            throw std::runtime_error("no " + name.toStdString());
        }
        return *widget;
    }

    dialogs::DialogOpener opener_{host_.dispatcher};
    QWidget parent_;
    int acted_ = 0;
};

} // namespace tovik::test
