// SPDX-License-Identifier: GPL-3.0-or-later
// What shows while the program starts. Interface thread.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <string>

namespace tovik::ui {

/// Borderless, opaque, in the middle of the screen. Boxes of a start that fails come over it.
class SplashWindow final : public QWidget {
public:
    /// With the picture of that file; with the program's name where there is none.
    explicit SplashWindow(const std::string& pictureFile);

    /// Shows it at once, without waiting for the event loop and without taking the user's input.
    void showNow();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
};

} // namespace tovik::ui
