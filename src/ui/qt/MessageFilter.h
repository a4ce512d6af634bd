// SPDX-License-Identifier: GPL-3.0-or-later
// Lets the events of a widget pass the procedures of a `MessageWindow` first: the one place that
// knows which event has which number. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/MessageWindow.h"

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace tovik::ui {

/// The message that stands for an event; number 0 for one that has none. Keys: `wParam` is the
/// virtual-key code, `lParam` the shift state (1 Shift, 2 Ctrl, 4 Alt). Mouse: `wParam` holds the
/// held buttons and keys as published, for the wheel its turn (120 a notch) in the upper half,
/// `lParam` the place in the widget, x in the lower 16 bits, y above them.
[[nodiscard]] WindowMessage messageOf(const QEvent& event);

class MessageFilter final : public QObject {
public:
    /// The widget is its parent. What the window's own procedure does with a message is to let the
    /// widget have the event; a message that is handled before never gets there.
    MessageFilter(QWidget& widget, const host::Dispatcher& dispatcher);

    [[nodiscard]] MessageWindow& window() { return window_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const host::Dispatcher& dispatcher_;
    QObject* watched_ = nullptr;
    QEvent* current_ = nullptr; ///< on its way through the procedures
    MessageWindow window_;
};

} // namespace tovik::ui
