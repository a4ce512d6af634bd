// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SourceGate.h"

#include <algorithm>
#include <thread>

namespace tovik::sound {

void SourceGate::shutAndWait() noexcept {
    shut();
    // Mixing one block takes far less than a millisecond, so this is not worth a signal from the
    // audio thread.
    while (taking_.load()) {
        std::this_thread::yield();
    }
}

void SourceGate::take(std::span<float> interleaved) noexcept {
    // Announced before the source is read: whoever shuts either sees this or is seen here. All
    // accesses are sequentially consistent for that reason.
    taking_.store(true);
    MixSource* const source = source_.load();
    if (source != nullptr) {
        source->mix(interleaved);
    } else {
        std::ranges::fill(interleaved, 0.0F);
    }
    taking_.store(false);
}

} // namespace tovik::sound
