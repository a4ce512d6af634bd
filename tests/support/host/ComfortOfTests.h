// SPDX-License-Identifier: GPL-3.0-or-later
// In which of its two states the player is tested.
#pragma once

#include "base/ComfortTable.h"

#include <cstdlib>
#include <string_view>

namespace tovik::test {

/// All comfort where the environment says TOVIK_COMFORT=on, else none. The tests that speak of an
/// odd behaviour are left out of such a run: tests/odd_tests.txt names them.
[[nodiscard]] inline base::Comfort comfortOfTests() {
    base::Comfort comfort;
    const char* const wanted = std::getenv("TOVIK_COMFORT"); // NOLINT(concurrency-mt-unsafe)
    if (wanted != nullptr && std::string_view(wanted) == "on") {
        for (const base::ComfortRow& row : base::kComfortRows) {
            comfort.*row.member = true;
        }
    }
    return comfort;
}

} // namespace tovik::test
