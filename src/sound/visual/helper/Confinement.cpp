// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/Confinement.h"

#include "sound/visual/helper/CallFilter.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tovik::visual {

namespace {

constexpr int kNiceness = 10;
constexpr rlim_t kMemory = rlim_t{512} << 20U;
constexpr rlim_t kOpenFiles = 64;

struct Limit {
    __rlimit_resource resource;
    rlim_t most;
};

constexpr std::array kLimits = {
    Limit{RLIMIT_AS, kMemory}, Limit{RLIMIT_NPROC, 0}, Limit{RLIMIT_NOFILE, kOpenFiles},
    Limit{RLIMIT_CORE, 0},     Limit{RLIMIT_FSIZE, 0},
};

/// No program is run and nothing on the disk can be changed. A process in such a realm cannot look
/// into the memory of one outside, either.
void lockFiles() {
    landlock_ruleset_attr handled{};
    handled.handled_access_fs =
        LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
        LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
        LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SOCK |
        LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
    // Emptying a file is a right of its own since the third version; the header may not name it
    // yet.
    constexpr std::uint64_t kTruncate = 1ULL << 14U;
    constexpr long kKnowsTruncate = 3;
    if (::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) >=
        kKnowsTruncate) {
        handled.handled_access_fs |= kTruncate;
    }
    const long rules = ::syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0);
    if (rules >= 0) {
        static_cast<void>(::syscall(SYS_landlock_restrict_self, rules, 0));
        ::close(static_cast<int>(rules));
    }
}

bool canLookInto(pid_t process) {
    std::array<char, 32> path{};
    static_cast<void>(
        std::snprintf(path.data(), path.size(), "/proc/%d/mem", static_cast<int>(process)));
    return ::open(path.data(), O_RDONLY | O_CLOEXEC) >= 0;
}

} // namespace

void tieTo(pid_t player, int firstForeign) {
    static_cast<void>(::prctl(PR_SET_PDEATHSIG, SIGKILL));
    if (::getppid() != player) {
        std::_Exit(EXIT_FAILURE);
    }
    static_cast<void>(::setpriority(PRIO_PROCESS, 0, kNiceness));
    static_cast<void>(::syscall(SYS_close_range, firstForeign, ~0U, 0));
}

void confine(pid_t player) {
    for (const Limit& limit : kLimits) {
        rlimit limits{};
        static_cast<void>(::getrlimit(limit.resource, &limits));
        limits.rlim_max = std::min(limits.rlim_max, limit.most);
        limits.rlim_cur = limits.rlim_max;
        if (::setrlimit(limit.resource, &limits) != 0) {
            std::_Exit(kUnconfined);
        }
    }
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        std::_Exit(kUnconfined);
    }
    lockFiles();
    // The realm is not to be had everywhere: what counts is that the player is out of reach.
    if (!filterCalls() || canLookInto(player)) {
        std::_Exit(kUnconfined);
    }
}

} // namespace tovik::visual
