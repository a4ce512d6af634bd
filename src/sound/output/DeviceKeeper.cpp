// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/DeviceKeeper.h"

#include <utility>

namespace tovik::sound {

DeviceKeeper::DeviceKeeper(std::unique_ptr<OutputDevice> device, DeviceObserver& observer,
                           KeeperTimes times)
    : worker_(std::make_shared<DeviceWorker>(std::move(device), observer, times)),
      thread_([worker = worker_] { worker->run(); }) {}

DeviceKeeper::~DeviceKeeper() {
    shutDown();
}

void DeviceKeeper::shutDown() {
    if (!thread_.joinable()) {
        return;
    }
    if (worker_->end()) {
        thread_.join();
    } else {
        thread_.detach(); // it owns what it still uses
    }
}

} // namespace tovik::sound
