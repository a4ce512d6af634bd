// SPDX-License-Identifier: GPL-3.0-or-later
// The messengers that run and listen for what plays. Interface thread.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::host {

/// What each of them gets: a number that says what the text is, and its bytes.
struct MessengerRecord {
    std::uint32_t dwData = 0;
    std::string lpData{};

    bool operator==(const MessengerRecord&) const = default;
};

class MessengerWindows {
public:
    virtual ~MessengerWindows() = default;

    /// Sends the record to every messenger that runs, in the order of the calls, without waiting
    /// for any of them. None running is no failure.
    virtual void send(const MessengerRecord& record) = 0;

    /// Gives what was sent a moment to arrive: 200 ms at most. For the end of the program.
    virtual void finish() {}
};

/// Nobody listens.
class NoMessengers final : public MessengerWindows {
public:
    void send(const MessengerRecord& /*record*/) override {}
};

} // namespace tovik::host
