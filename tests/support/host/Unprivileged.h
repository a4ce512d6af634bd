// SPDX-License-Identifier: GPL-3.0-or-later
// For tests of what access modes forbid: they forbid nothing to root.
#pragma once

#include <exception>
#include <stdexcept>

#include <unistd.h>

namespace tovik::test {

/// While it lives, a process of root acts as a user without rights; any other goes on as it is.
class Unprivileged {
public:
    Unprivileged() {
        constexpr uid_t kNobody = 65534;
        if (user_ == 0 && ::seteuid(kNobody) != 0) {
            throw std::runtime_error("cannot give up rights");
        }
    }

    ~Unprivileged() {
        if (user_ == 0 && ::seteuid(user_) != 0) {
            std::terminate();
        }
    }

    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    uid_t user_ = ::geteuid();
};

} // namespace tovik::test
