// SPDX-License-Identifier: GPL-3.0-or-later
// The small window of tests on the screen, with an eye on what it paints.
#pragma once

#include "../SmallWindow.h"
#include "ui/qt/SkinWindow.h"

#include <QCoreApplication>
#include <QPaintEvent>
#include <QTest>

#include <vector>

namespace tovik::ui::test {

/// Notes the region of each paint event of a widget.
class PaintWatch final : public QObject {
public:
    std::vector<QRegion> regions;

    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    /// Everything painted since the last call.
    QRegion take() {
        QRegion all;
        for (const QRegion& region : regions) {
            all += region;
        }
        regions.clear();
        return all;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            regions.push_back(static_cast<QPaintEvent*>(event)->region());
        }
        return QObject::eventFilter(watched, event);
    }
};

struct WindowRig {
    ElementTable<Small> table{kSmallLayout};
    PictureStore pictures;
    Notes notes;
    host::Dispatcher dispatcher;
    SkinWindow window{table, pictures, notes, dispatcher};
    PaintWatch painted{window};

    /// Shows the window and forgets what that painted.
    [[nodiscard]] bool show() {
        window.show();
        const bool shown = QTest::qWaitForWindowExposed(&window);
        settle();
        static_cast<void>(painted.take());
        return shown;
    }

    /// A move of the mouse, told to the window alone: the cursor of the screen stays where it is.
    void moveMouse(QPointF place) {
        QMouseEvent move(QEvent::MouseMove, place, window.mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, {});
        QCoreApplication::sendEvent(&window, &move);
    }

    /// Lets everything happen that has been asked for.
    static void settle() {
        for (int round = 0; round < 5; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }
};

} // namespace tovik::ui::test
