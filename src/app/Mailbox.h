// SPDX-License-Identifier: GPL-3.0-or-later
// What later instances ask of this one, until it has time for it. Interface thread.
#pragma once

#include "host/Host.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>

namespace tovik::app {

/// A message is kept at once, so that its sender need not wait, and carried out from the event
/// loop.
class Mailbox {
public:
    /// More than this many are not kept.
    static constexpr std::size_t kMost = 1000;

    using CarryOut = std::function<void(const host::InstanceMessage&)>;

    /// Whether nothing stands in the way of carrying out messages.
    using Ready = std::function<bool()>;

    /// What the host names outlives the object.
    explicit Mailbox(const host::Host& host);
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    /// From now on messages are kept. For the first instance, once.
    void open();

    /// From now on messages are carried out: in the order in which they came, one at a time, none
    /// during a long job. A wish to see the window waits for nothing.
    void begin(Ready ready, CarryOut carryOut);

private:
    [[nodiscard]] bool keep(host::InstanceMessage message);
    void look();
    void showWindow();

    host::Host host_;
    std::deque<host::InstanceMessage> messages_;
    Ready ready_;
    CarryOut carryOut_;
    std::unique_ptr<host::Timer> look_; ///< runs as long as there are messages
};

} // namespace tovik::app
