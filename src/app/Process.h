// SPDX-License-Identifier: GPL-3.0-or-later
// The process that the player is: how it ends, and whether it is the only one. Interface thread.
#pragma once

#include "app/Mailbox.h"
#include "commands/Commands.h"
#include "host/Host.h"

#include <string>

namespace tovik::app {

class Process {
public:
    /// `checkInstance`: other instances count. What the host names outlives the object.
    Process(const host::Host& host, bool checkInstance)
        : host_(host), checkInstance_(checkInstance), mailbox_(host) {}

    /// The process was told to end: nothing more is done.
    [[nodiscard]] bool ended() const { return ended_; }

    void end(int status);

    /// Says why in a box first.
    void endWith(const std::string& text, const std::string& title);

    /// Whether another instance runs. If none does, this one is the first from now on, and hears
    /// what later ones ask for.
    [[nodiscard]] bool anotherInstance();

    /// Other instances count, and none was there before this one.
    [[nodiscard]] bool isFirst() { return checkInstance_ && !anotherInstance(); }

    /// Another instance runs, and only one is allowed: of what is left, only what a step table
    /// marks so is done.
    [[nodiscard]] bool passingBy() const { return passingBy_; }

    void passBy() { passingBy_ = true; }

    /// Sends a message to the other instance; see `InstanceMessages::send`.
    [[nodiscard]] bool send(const host::InstanceMessage& message);

    [[nodiscard]] Mailbox& mailbox() { return mailbox_; }

    void bind(commands::Commands& commands);

private:
    host::Host host_;
    bool checkInstance_;
    bool ended_ = false;
    bool passingBy_ = false;
    bool first_ = false;
    Mailbox mailbox_;
};

} // namespace tovik::app
