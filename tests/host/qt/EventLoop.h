// SPDX-License-Identifier: GPL-3.0-or-later
// Running the event loop from a test.
#pragma once

#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace tovik::test {

/// Processes events until the condition holds; false if it does not within ten seconds.
inline bool waitFor(const std::function<bool()>& condition) {
    constexpr int kLimitMs = 10000;
    constexpr int kLookMs = 1;
    QEventLoop loop;
    QTimer look;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition()) {
            loop.quit();
        }
    });
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    look.start(kLookMs);
    limit.start(kLimitMs);
    if (!condition()) {
        loop.exec();
    }
    return condition();
}

} // namespace tovik::test
