// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/SeededRandom.h"

namespace tovik::host {

double SeededRandom::next() {
    // The upper 53 bits, as many as a double holds: never 1, and free of library differences.
    constexpr unsigned kDroppedBits = 64 - 53;
    return static_cast<double>(engine_() >> kDroppedBits) * 0x1.0p-53;
}

} // namespace tovik::host
