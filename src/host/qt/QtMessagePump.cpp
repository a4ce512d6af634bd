// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtMessagePump.h"

#include "host/Counted.h"

#include <QAbstractEventDispatcher>
#include <QThread>

namespace tovik::host {

namespace {

constexpr unsigned long kPauseMs = 10;

/// Whether there were any.
bool processEvents() {
    return QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
}

} // namespace

bool QtMessagePump::Step() {
    if (closing_.leaveIfAsked()) {
        return false;
    }
    const std::int64_t now = clock_.monotonicMs();
    if (now == lastLookMs_) {
        return true;
    }
    lastLookMs_ = now;
    const Counted step(depth_);
    if (processEvents() && !closing_.ending()) {
        QThread::msleep(kPauseMs);
        processEvents();
    }
    return !closing_.ending();
}

} // namespace tovik::host
