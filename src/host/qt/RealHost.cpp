// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/RealHost.h"

#include <cstdlib>
#include <random>
#include <utility>

namespace tovik::host {

RealHost::RealHost(std::string dataFolder, std::string searchPath, std::function<void()> lastAct)
    : paths_(std::move(dataFolder)), closing_([lastAct = std::move(lastAct)](int status) {
          if (lastAct) {
              lastAct();
          }
          std::_Exit(status);
      }),
      timers_(clock_, dispatcher_), pump_(clock_, closing_),
      programs_(paths_, std::move(searchPath)), random_(std::random_device()()),
      lock_(paths_.of(DataItem::InstanceLock)),
      signals_([this] { closing_.request(ClosedBy::System); }) {
    leaveSoon_.setSingleShot(true);
    QObject::connect(&leaveSoon_, &QTimer::timeout, &leaveSoon_,
                     [this] { dispatcher_.run([this] { closing_.leaveIfAsked(); }); });
    closing_.setWake([this] { leaveSoon_.start(0); });
}

Host RealHost::host() {
    return {.clock = clock_,
            .timers = timers_,
            .pump = pump_,
            .dialogs = dialogs_,
            .programs = programs_,
            .random = random_,
            .lock = lock_,
            .dispatcher = dispatcher_,
            .closing = closing_,
            .paths = paths_,
            .operatingSystem = operatingSystem_};
}

} // namespace tovik::host
