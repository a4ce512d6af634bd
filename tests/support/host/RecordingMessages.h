// SPDX-License-Identifier: GPL-3.0-or-later
// Messages between instances under a test's control: what is sent is kept, what arrives comes from
// the test.
#pragma once

#include "host/InstanceMessages.h"

#include <functional>
#include <utility>
#include <vector>

namespace tovik::test {

class RecordingMessages final : public host::InstanceMessages {
public:
    std::vector<host::InstanceMessage> sent;
    bool answers = true;                  ///< whether a message that is sent is kept
    std::function<void()> whileSending{}; ///< what happens meanwhile
    Keep keep;                            ///< empty as long as nobody receives

    void receive(Keep kept) override { keep = std::move(kept); }

    [[nodiscard]] bool send(const host::InstanceMessage& message,
                            const OtherRuns& otherRuns) override {
        sent.push_back(message);
        if (whileSending) {
            whileSending();
        }
        return otherRuns() && answers;
    }
};

} // namespace tovik::test
