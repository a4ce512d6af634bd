// SPDX-License-Identifier: GPL-3.0-or-later
// How instances of the program that share a data folder speak to each other. Interface thread.
#pragma once

#include "host/InstanceMessage.h"

#include <functional>

namespace tovik::host {

class InstanceMessages {
public:
    /// Keeps a message and says whether it could; called from the event loop. What it asks for is
    /// done later: the sender waits until it is kept.
    using Keep = std::function<bool(InstanceMessage)>;

    /// Whether there is still another instance that could take a message.
    using OtherRuns = std::function<bool()>;

    virtual ~InstanceMessages() = default;

    /// From now on messages of later instances arrive. Only for the holder of the instance lock,
    /// once it has that.
    virtual void receive(Keep keep) = 0;

    /// Sends a message and waits until it is kept: 5 s at most, also for an instance that is not
    /// ready to receive yet, and only while there is another. Whether it was kept.
    [[nodiscard]] virtual bool send(const InstanceMessage& message, const OtherRuns& otherRuns) = 0;
};

/// There is nobody to speak to.
class NoInstanceMessages final : public InstanceMessages {
public:
    void receive(Keep /*keep*/) override {}

    [[nodiscard]] bool send(const InstanceMessage& /*message*/,
                            const OtherRuns& /*otherRuns*/) override {
        return false;
    }
};

} // namespace tovik::host
