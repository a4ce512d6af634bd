// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/RealHost.h"

#include "host/system/LocalAddress.h"

#include <cstdlib>
#include <random>
#include <utility>

#include <unistd.h>

namespace tovik::host {

RealHost::RealHost(std::string dataFolder, std::string searchPath, const std::string& runtimeFolder,
                   std::function<void()> lastAct)
    : paths_(std::move(dataFolder)), closing_([this, lastAct = std::move(lastAct)](int status) {
          // While the lock is held: the socket that goes is this one's.
          messages_.close();
          if (lastAct) {
              lastAct();
          }
          std::_Exit(status);
      }),
      timers_(clock_, dispatcher_), pump_(clock_, closing_),
      programs_(paths_, std::move(searchPath)), random_(std::random_device()()),
      lock_(paths_.of(DataItem::InstanceLock)),
      messages_(instanceSocketPath(runtimeFolder, paths_.dataFolder(), ::getuid()), dispatcher_),
      messengers_(runtimeFolder), signals_([this] { closing_.request(ClosedBy::System); }) {
    leaveSoon_.setSingleShot(true);
    QObject::connect(&leaveSoon_, &QTimer::timeout, &leaveSoon_,
                     [this] { dispatcher_.run([this] { closing_.leaveIfAsked(); }); });
    closing_.setWake([this] { leaveSoon_.start(0); });
}

Host RealHost::host() {
    return {.clock = clock_,
            .timers = timers_,
            .watches = watches_,
            .pump = pump_,
            .dialogs = dialogs_,
            .programs = programs_,
            .random = random_,
            .lock = lock_,
            .messages = messages_,
            .messengers = messengers_,
            .dispatcher = dispatcher_,
            .closing = closing_,
            .paths = paths_,
            .operatingSystem = operatingSystem_};
}

} // namespace tovik::host
