// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/UnixSignals.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace tovik::host {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

/// The end of the pipe that the handler writes to.
std::atomic<int> writeEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler must not wait");

extern "C" void tovikSignalArrived(int /*signal*/) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(writeEnd.load(), &byte, sizeof byte);
    errno = savedError;
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

UnixSignals::UnixSignals(std::function<void()> onSignal) : onSignal_(std::move(onSignal)) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals then end the process at once
    }
    readEnd_ = ends[0];
    writeEnd = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { read(); });
    handleSignals(tovikSignalArrived, SA_RESTART | static_cast<int>(SA_RESETHAND));
}

UnixSignals::~UnixSignals() {
    if (readEnd_ >= 0) {
        handleSignals(SIG_DFL, 0);
        ::close(writeEnd.exchange(-1));
        notifier_.reset();
        ::close(readEnd_);
    }
}

void UnixSignals::read() {
    char byte = 0;
    while (::read(readEnd_, &byte, sizeof byte) > 0) {
    }
    onSignal_();
}

} // namespace tovik::host
