// SPDX-License-Identifier: GPL-3.0-or-later
// Messages between instances in the desktop's event loop. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "host/InstanceMessages.h"
#include "host/system/InstanceReceiver.h"

#include <memory>
#include <string>

class QSocketNotifier;

namespace tovik::host {

class QtInstanceMessages final : public InstanceMessages {
public:
    /// The socket by which instances meet. The dispatcher outlives the object.
    QtInstanceMessages(std::string socketPath, const Dispatcher& dispatcher);
    ~QtInstanceMessages() override;
    QtInstanceMessages(const QtInstanceMessages&) = delete;
    QtInstanceMessages& operator=(const QtInstanceMessages&) = delete;

    void receive(Keep keep) override;
    [[nodiscard]] bool send(const InstanceMessage& message, const OtherRuns& otherRuns) override;

    /// Nothing arrives any more, and the socket is gone.
    void close();

private:
    const Dispatcher& dispatcher_;
    std::string path_;
    InstanceReceiver receiver_;
    Keep keep_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tovik::host
