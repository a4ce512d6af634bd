// SPDX-License-Identifier: GPL-3.0-or-later
// Changes the title of a window under X11 without being told of it. The X server tells a window of
// every change of its properties, a title's two among them, and each time two threads of Qt's wake:
// for a caption that rotates that is most of what an idle program does. Interface thread.
#pragma once

#include <cstdint>
#include <QString>
#include <QWindow>

namespace tovik::ui {

class QuietTitle {
public:
    /// False where the window is not one of X11, or its server does not answer: nothing is done.
    /// Asks the server once for each window.
    [[nodiscard]] bool set(const QWindow& window, const QString& title);

private:
    /// What a window hears of, and the names of the properties.
    struct Known {
        std::uint32_t window = 0;
        std::uint32_t events = 0;
        std::uint32_t name = 0; ///< 0: the server was not asked, or did not answer
        std::uint32_t utf8 = 0;
    };

    Known known_;
};

} // namespace tovik::ui
