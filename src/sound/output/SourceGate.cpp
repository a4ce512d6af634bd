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

/// Makes the call if there is a source; false if there is none.
template <typename Call>
bool SourceGate::pass(Call call) {
    // Announced before the source is read: whoever shuts either sees this or is seen here. All
    // accesses are sequentially consistent for that reason.
    taking_.store(true);
    MixSource* const source = source_.load();
    if (source != nullptr) {
        call(*source);
    }
    taking_.store(false);
    return source != nullptr;
}

void SourceGate::mix(std::span<float> interleaved) noexcept {
    if (!pass([&](MixSource& source) { source.mix(interleaved); })) {
        std::ranges::fill(interleaved, 0.0F);
    }
}

void SourceGate::decodeAhead(std::size_t frames) {
    pass([&](MixSource& source) { source.decodeAhead(frames); });
}

std::int64_t SourceGate::beginAhead() noexcept {
    std::int64_t clock = 0;
    pass([&](MixSource& source) { clock = source.beginAhead(); });
    return clock;
}

void SourceGate::mixAhead(std::span<float> interleaved) noexcept {
    if (!pass([&](MixSource& source) { source.mixAhead(interleaved); })) {
        std::ranges::fill(interleaved, 0.0F);
    }
}

void SourceGate::settle(std::int64_t heard) noexcept {
    pass([&](MixSource& source) { source.settle(heard); });
}

std::optional<std::int64_t> SourceGate::takeBack(std::int64_t earliest) noexcept {
    std::optional<std::int64_t> from;
    pass([&](MixSource& source) { from = source.takeBack(earliest); });
    return from;
}

void SourceGate::endAhead(std::int64_t heard) noexcept {
    pass([&](MixSource& source) { source.endAhead(heard); });
}

} // namespace tovik::sound
