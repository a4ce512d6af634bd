// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/WakeEvent.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace tovik::sound {

WakeEvent::WakeEvent() noexcept : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

WakeEvent::~WakeEvent() {
    ::close(descriptor_);
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it raises is its state
void WakeEvent::raise() noexcept {
    const std::uint64_t one = 1;
    // It fails only when it has been raised 2^64 times.
    static_cast<void>(::write(descriptor_, &one, sizeof one) == sizeof one);
}

// NOLINTNEXTLINE(readability-make-member-function-const): as above
void WakeEvent::take() noexcept {
    std::uint64_t count = 0;
    static_cast<void>(::read(descriptor_, &count, sizeof count) == sizeof count);
}

} // namespace tovik::sound
