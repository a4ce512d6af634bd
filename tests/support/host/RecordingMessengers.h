// SPDX-License-Identifier: GPL-3.0-or-later
// Messengers that keep what they are told.
#pragma once

#include "host/MessengerWindows.h"

#include <vector>

namespace tovik::test {

class RecordingMessengers final : public host::MessengerWindows {
public:
    std::vector<host::MessengerRecord> sent;

    void send(const host::MessengerRecord& record) override { sent.push_back(record); }
};

} // namespace tovik::test
