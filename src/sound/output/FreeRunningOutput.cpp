// SPDX-License-Identifier: GPL-3.0-or-later
// The thread only takes blocks; it sleeps while the device takes nothing.
#include "sound/output/FreeRunningOutput.h"

#include <utility>

namespace tovik::sound {

namespace {

// Between two blocks the device stays unlocked this long, so that whoever closes it gets a turn.
constexpr std::chrono::microseconds kBreath(20);

} // namespace

FreeRunningOutput::FreeRunningOutput(const Settings& settings) : SimulatedOutput(settings) {
    const std::size_t blockFrames = settings.blockFrames;
    thread_ =
        std::jthread([this, blockFrames](const std::stop_token& stop) { run(stop, blockFrames); });
}

FreeRunningOutput::~FreeRunningOutput() {
    thread_.request_stop();
    stopWaiting();
    thread_.join();
}

void FreeRunningOutput::run(const std::stop_token& stop, std::size_t blockFrames) {
    while (!stop.stop_requested()) {
        if (advance(blockFrames) == 0) {
            waitUntilTaking();
        }
        std::this_thread::sleep_for(kBreath);
    }
}

} // namespace tovik::sound
