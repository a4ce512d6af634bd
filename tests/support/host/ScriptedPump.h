// SPDX-License-Identifier: GPL-3.0-or-later
// A pump whose steps do what a test says. One thread.
#pragma once

#include "host/MessagePump.h"

#include <functional>

namespace tovik::test {

class ScriptedPump final : public host::MessagePump {
public:
    /// Done in each step; false: the program is ending.
    std::function<bool()> inStep;
    int steps = 0;

    [[nodiscard]] bool Step() override {
        ++steps;
        return !inStep || inStep();
    }
};

} // namespace tovik::test
