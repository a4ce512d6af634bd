// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/Confinement.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

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

#if defined(__x86_64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t kArchitecture = 0; // the filter is left out
#endif

/// Calls of the kernel that a picture has no need of.
constexpr std::array kRefused = {
    // Processes and threads, and what they could be told to do.
    SYS_clone,
    SYS_execve,
    SYS_execveat,
    SYS_kill,
    SYS_tkill,
    SYS_rt_sigqueueinfo,
    SYS_rt_tgsigqueueinfo,
    SYS_ptrace,
    SYS_process_vm_readv,
    SYS_process_vm_writev,
    SYS_process_madvise,
    SYS_migrate_pages,
    SYS_move_pages,
    SYS_ioprio_set,
    SYS_sched_setaffinity,
    SYS_setsid,
    SYS_setpgid,
    SYS_setpriority,
    SYS_sched_setscheduler,
    SYS_sched_setparam,
    SYS_sched_setattr,
    SYS_setrlimit,
    SYS_unshare,
    SYS_setns,
    SYS_pidfd_open,
    SYS_pidfd_getfd,
    SYS_pidfd_send_signal,
#if defined(__x86_64__)
    SYS_fork,
    SYS_vfork,
#endif
    // Files, as far as the realm below leaves them open.
    SYS_truncate,
    SYS_ftruncate,
    SYS_fchmod,
    SYS_fchmodat,
    SYS_fchown,
    SYS_fchownat,
    SYS_setxattr,
    SYS_lsetxattr,
    SYS_fsetxattr,
    SYS_removexattr,
    SYS_lremovexattr,
    SYS_fremovexattr,
    SYS_utimensat,
#if defined(__x86_64__)
    SYS_chmod,
    SYS_chown,
    SYS_lchown,
    SYS_utime,
    SYS_utimes,
    SYS_futimesat,
#endif
    // The network, and other ways out.
    SYS_socket,
    SYS_socketpair,
    SYS_connect,
    SYS_bind,
    SYS_listen,
    SYS_accept,
    SYS_accept4,
    SYS_io_uring_setup,
    SYS_io_uring_enter,
    SYS_io_uring_register,
    SYS_shmget,
    SYS_shmat,
    SYS_shmctl,
    SYS_msgget,
    SYS_msgctl,
    SYS_semget,
    SYS_semctl,
    SYS_mq_open,
    // The machine.
    SYS_mount,
    SYS_umount2,
    SYS_chroot,
    SYS_pivot_root,
    SYS_bpf,
    SYS_perf_event_open,
    SYS_keyctl,
    SYS_add_key,
    SYS_request_key,
    SYS_userfaultfd,
    SYS_reboot,
    SYS_init_module,
    SYS_finit_module,
    SYS_kexec_load,
    SYS_swapon,
    SYS_settimeofday,
    SYS_clock_settime,
};

/// The lower half of an argument; the machines above keep it first.
constexpr std::uint32_t argument(std::size_t number) {
    return static_cast<std::uint32_t>(offsetof(seccomp_data, args) +
                                      number * sizeof(std::uint64_t));
}

sock_filter load(std::uint32_t place) {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, place);
}

/// Goes on behind the next `otherwise` instructions unless what is loaded is `value`.
sock_filter unlessSkip(std::uint32_t value, std::uint8_t otherwise) {
    return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, 0, otherwise);
}

sock_filter answer(std::uint32_t what) {
    return BPF_STMT(BPF_RET | BPF_K, what);
}

constexpr std::uint32_t kAllow = SECCOMP_RET_ALLOW;

constexpr std::uint32_t refuse(int why) {
    return SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(why);
}

void filterCalls() {
    if (kArchitecture == 0) {
        return;
    }
    constexpr auto kNumber = static_cast<std::uint32_t>(offsetof(seccomp_data, nr));
    std::vector<sock_filter> filter = {
        load(offsetof(seccomp_data, arch)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kArchitecture, 1, 0),
        answer(SECCOMP_RET_KILL_PROCESS),
        load(kNumber),
    };
#if defined(__x86_64__)
    // The other numbering of the same machine.
    constexpr std::uint32_t kOtherNumbers = 0x40000000;
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, kOtherNumbers, 0, 1));
    filter.push_back(answer(SECCOMP_RET_KILL_PROCESS));
#endif
    for (const long call : kRefused) {
        filter.push_back(unlessSkip(static_cast<std::uint32_t>(call), 1));
        filter.push_back(answer(refuse(EPERM)));
    }
    // The library tries the older call behind it.
    filter.push_back(unlessSkip(SYS_clone3, 1));
    filter.push_back(answer(refuse(ENOSYS)));
    // Signals to itself: abort() sends one.
    filter.push_back(unlessSkip(SYS_tgkill, 4));
    filter.push_back(load(argument(0)));
    filter.push_back(unlessSkip(static_cast<std::uint32_t>(::getpid()), 1));
    filter.push_back(answer(kAllow));
    filter.push_back(answer(refuse(EPERM)));
    // A descriptor may not send signals to whom it likes.
    constexpr std::array kOwners = {F_SETOWN, F_SETOWN_EX, F_SETSIG};
    filter.push_back(unlessSkip(SYS_fcntl, 2 * kOwners.size() + 2));
    filter.push_back(load(argument(1)));
    for (const int command : kOwners) {
        filter.push_back(unlessSkip(static_cast<std::uint32_t>(command), 1));
        filter.push_back(answer(refuse(EPERM)));
    }
    filter.push_back(answer(kAllow));
    // Limits may be read: the new ones are the third argument.
    filter.push_back(unlessSkip(SYS_prlimit64, 6));
    filter.push_back(load(argument(2)));
    filter.push_back(unlessSkip(0, 3));
    filter.push_back(load(argument(2) + sizeof(std::uint32_t)));
    filter.push_back(unlessSkip(0, 1));
    filter.push_back(answer(kAllow));
    filter.push_back(answer(refuse(EPERM)));
    // The tie to the player is not loosened.
    filter.push_back(unlessSkip(SYS_prctl, 3));
    filter.push_back(load(argument(0)));
    filter.push_back(unlessSkip(PR_SET_PDEATHSIG, 1));
    filter.push_back(answer(refuse(EPERM)));
    filter.push_back(answer(kAllow));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    static_cast<void>(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program));
}

/// Nothing on the disk can be changed. A process in such a realm cannot look into the memory of one
/// outside, either.
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

} // namespace

void tieTo(pid_t player, int firstForeign) {
    static_cast<void>(::prctl(PR_SET_PDEATHSIG, SIGKILL));
    if (::getppid() != player) {
        std::_Exit(EXIT_FAILURE);
    }
    static_cast<void>(::setpriority(PRIO_PROCESS, 0, kNiceness));
    static_cast<void>(::syscall(SYS_close_range, firstForeign, ~0U, 0));
}

void confine() {
    for (const Limit& limit : kLimits) {
        rlimit limits{};
        static_cast<void>(::getrlimit(limit.resource, &limits));
        limits.rlim_max = std::min(limits.rlim_max, limit.most);
        limits.rlim_cur = limits.rlim_max;
        if (::setrlimit(limit.resource, &limits) != 0) {
            std::_Exit(EXIT_FAILURE);
        }
    }
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0) {
        lockFiles();
        filterCalls();
    }
}

} // namespace tovik::visual
