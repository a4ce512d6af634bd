// SPDX-License-Identifier: GPL-3.0-or-later
// The signals by which a system asks a program to end. Interface thread.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace tovik::host {

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the event loop. The second signal of a kind
/// ends the process as if nobody listened, so that a hung program can still be stopped. One object
/// at a time; the handlers go back to the system's own with it.
class UnixSignals {
public:
    explicit UnixSignals(std::function<void()> onSignal);
    ~UnixSignals();
    UnixSignals(const UnixSignals&) = delete;
    UnixSignals& operator=(const UnixSignals&) = delete;

private:
    void read();

    std::function<void()> onSignal_;
    int readEnd_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tovik::host
