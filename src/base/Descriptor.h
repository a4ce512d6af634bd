// SPDX-License-Identifier: GPL-3.0-or-later
// An open file, socket or the like. Any thread.
#pragma once

#include <cerrno>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace tovik::base {

/// Closes it when the object goes.
class Descriptor {
public:
    Descriptor() = default;

    /// Below 0: none.
    explicit Descriptor(int descriptor) noexcept : descriptor_(descriptor) {}

    ~Descriptor() { reset(); }

    Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const noexcept { return descriptor_; }

    [[nodiscard]] bool open() const noexcept { return descriptor_ >= 0; }

    /// Closes it and tells what the system says of what was written through it, which some file
    /// systems send off only now; no error where there is none open.
    [[nodiscard]] std::error_code close() noexcept {
        if (descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0 || errno == EINTR) {
            return {};
        }
        return {errno, std::generic_category()};
    }

    void reset() noexcept {
        if (descriptor_ >= 0) {
            ::close(std::exchange(descriptor_, -1));
        }
    }

private:
    int descriptor_ = -1;
};

} // namespace tovik::base
