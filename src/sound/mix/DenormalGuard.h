// SPDX-License-Identifier: GPL-3.0-or-later
// Tiny numbers count as 0 while it lives: filters that fade out stay fast. Any thread; acts on the
// thread that made it, and must end on the same one.
#pragma once

#include <cstdint>

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

namespace tovik::sound {

class DenormalGuard {
public:
    DenormalGuard() noexcept : before_(control()) { setControl(before_ | kFlush); }

    ~DenormalGuard() { setControl(before_); }

    DenormalGuard(const DenormalGuard&) = delete;
    DenormalGuard& operator=(const DenormalGuard&) = delete;

private:
#if defined(__SSE2__)
    using Control = unsigned int;
    static constexpr Control kFlush = 0x8040; // results flushed to 0, operands taken as 0

    static Control control() noexcept {
        return _mm_getcsr();
    }

    static void setControl(Control value) noexcept {
        _mm_setcsr(value);
    }
#elif defined(__aarch64__)
    using Control = std::uint64_t;
    static constexpr Control kFlush = Control{1} << 24;

    static Control control() noexcept {
        Control value = 0;
        asm volatile("mrs %0, fpcr" : "=r"(value));
        return value;
    }

    static void setControl(Control value) noexcept {
        asm volatile("msr fpcr, %0" : : "r"(value));
    }
#else
    // Elsewhere tiny numbers are only slow, not wrong.
    using Control = int;
    static constexpr Control kFlush = 0;

    static Control control() noexcept {
        return 0;
    }

    static void setControl(Control) noexcept {}
#endif

    Control before_;
};

} // namespace tovik::sound
