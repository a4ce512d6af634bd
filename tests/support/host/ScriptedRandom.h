// SPDX-License-Identifier: GPL-3.0-or-later
// Chance that a test chose.
#pragma once

#include "host/RandomNumbers.h"

#include <deque>

namespace tovik::test {

/// Gives the numbers of the script, then 0.
class ScriptedRandom final : public host::RandomNumbers {
public:
    std::deque<double> script;

    [[nodiscard]] double next() override {
        if (script.empty()) {
            return 0;
        }
        const double number = script.front();
        script.pop_front();
        return number;
    }
};

} // namespace tovik::test
