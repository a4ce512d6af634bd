// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/virtual/RenderHost.h"

#include <utility>

namespace tovik::host {

RenderHost::RenderHost(std::string dataFolder, OperatingSystem operatingSystem,
                       std::string searchPath)
    : paths_(std::move(dataFolder)), operatingSystem_(operatingSystem),
      closing_([this](int status) { endStatus_ = status; }), clock_(dispatcher_),
      pump_(clock_, closing_), programs_(paths_, std::move(searchPath)) {}

Host RenderHost::host() {
    return {.clock = clock_,
            .timers = clock_,
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
