// SPDX-License-Identifier: GPL-3.0-or-later
// The host of a program on a desktop: the machine's clock, the event loop, dialogs on the screen.
// Interface thread.
#pragma once

#include "host/Host.h"
#include "host/qt/QtDialogs.h"
#include "host/qt/QtInstanceMessages.h"
#include "host/qt/QtMessagePump.h"
#include "host/qt/QtTimers.h"
#include "host/qt/QtWatches.h"
#include "host/qt/UnixSignals.h"
#include "host/SeededRandom.h"
#include "host/system/DetachedPrograms.h"
#include "host/system/FileLock.h"
#include "host/system/LocalMessengers.h"
#include "host/system/SystemClock.h"

#include <QTimer>

#include <functional>
#include <string>

namespace tovik::host {

/// Owns the services. Needs the QApplication and lives shorter than it. SIGTERM, SIGINT and SIGHUP
/// ask for the end like the close box; the end of the process is immediate (`_Exit`).
class RealHost {
public:
    /// `searchPath` is as in PATH; in `runtimeFolder` instances meet. `lastAct` runs right before
    /// the process ends.
    RealHost(std::string dataFolder, std::string searchPath, const std::string& runtimeFolder,
             std::function<void()> lastAct = {});

    [[nodiscard]] Host host();

    [[nodiscard]] QtDialogs& dialogs() { return dialogs_; }

private:
    Paths paths_;
    OperatingSystem operatingSystem_ = OperatingSystem::current();
    SystemClock clock_;
    Dispatcher dispatcher_;
    Closing closing_;
    QtTimers timers_;
    QtWatches watches_{dispatcher_};
    QtMessagePump pump_;
    QtDialogs dialogs_;
    DetachedPrograms programs_;
    SeededRandom random_;
    FileLock lock_;
    QtInstanceMessages messages_;
    LocalMessengers messengers_;
    QTimer leaveSoon_;
    UnixSignals signals_;
};

} // namespace tovik::host
