// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/StopSignals.h"

#include <array>
#include <atomic>
#include <csignal>

namespace tovik::host {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

std::atomic<int> arrivedSignal{0};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler must not wait");

extern "C" void tovikStopArrived(int signal) {
    arrivedSignal = signal;
}

void handleSignals(void (*handler)(int), int flags) {
    struct sigaction action {};

    action.sa_handler = handler;
    action.sa_flags = flags;
    for (const int signal : kSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

StopSignals::StopSignals() {
    arrivedSignal = 0;
    handleSignals(tovikStopArrived, SA_RESTART | static_cast<int>(SA_RESETHAND));
}

StopSignals::~StopSignals() {
    handleSignals(SIG_DFL, 0);
}

int StopSignals::arrived() noexcept {
    return arrivedSignal;
}

} // namespace tovik::host
