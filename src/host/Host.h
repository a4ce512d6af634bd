// SPDX-License-Identifier: GPL-3.0-or-later
// Everything the platform offers, in one bundle. A part of the program asks for the single
// interfaces it needs; only who puts parts together passes the bundle on. Interface thread.
#pragma once

#include "host/Clock.h"
#include "host/Closing.h"
#include "host/Dialogs.h"
#include "host/Dispatcher.h"
#include "host/InstanceLock.h"
#include "host/InstanceMessages.h"
#include "host/MessagePump.h"
#include "host/MessengerWindows.h"
#include "host/OperatingSystem.h"
#include "host/Paths.h"
#include "host/Programs.h"
#include "host/RandomNumbers.h"
#include "host/TimerFactory.h"
#include "host/Watches.h"

namespace tovik::host {

/// References to the services; their owner (real, virtual or a test's) outlives the bundle.
struct Host {
    Clock& clock;
    TimerFactory& timers;
    Watches& watches;
    MessagePump& pump;
    Dialogs& dialogs;
    Programs& programs;
    RandomNumbers& random;
    InstanceLock& lock;
    InstanceMessages& messages;
    MessengerWindows& messengers;
    Dispatcher& dispatcher;
    Closing& closing;
    const Paths& paths;
    const OperatingSystem& operatingSystem;
};

} // namespace tovik::host
