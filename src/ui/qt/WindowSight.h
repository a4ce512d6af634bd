// SPDX-License-Identifier: GPL-3.0-or-later
// Tells when a window may have come in sight: shown, brought back from the task bar or from another
// desktop. Interface thread.
#pragma once

#include <functional>
#include <QObject>
#include <QWidget>

namespace tovik::ui {

class WindowSight final : public QObject {
public:
    /// Watches the widget of a window; `cameInSight` is called rather too often than too seldom.
    /// Both outlive the object.
    WindowSight(QWidget& widget, std::function<void()> cameInSight);

    /// Whether anything of the widget's window is on a screen.
    [[nodiscard]] static bool seen(const QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& widget_;
    std::function<void()> cameInSight_;
};

} // namespace tovik::ui
