// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PumpedWork.h"

#include "host/BesideJob.h"

namespace tovik::app {

void PumpedWork::run(const std::function<void()>& work) {
    static_cast<void>(host::runBeside(pump_, work, host::AtEnd::finish));
}

} // namespace tovik::app
