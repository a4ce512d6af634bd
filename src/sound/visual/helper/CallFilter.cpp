// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/CallFilter.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace tovik::visual {

namespace {

#if defined(__x86_64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t kArchitecture = 0; // no filter, and so no plug-in
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
    // Files. How they are opened is looked at below.
    SYS_mkdirat,
    SYS_mknodat,
    SYS_unlinkat,
    SYS_symlinkat,
    SYS_linkat,
    SYS_renameat2,
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
#if defined(SYS_renameat)
    SYS_renameat,
#endif
#if defined(__x86_64__)
    SYS_creat,
    SYS_mkdir,
    SYS_mknod,
    SYS_unlink,
    SYS_rmdir,
    SYS_symlink,
    SYS_link,
    SYS_rename,
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

constexpr auto kNumber = static_cast<std::uint32_t>(offsetof(seccomp_data, nr));

constexpr std::uint32_t kAllow = SECCOMP_RET_ALLOW;

constexpr std::uint32_t refuse(int why) {
    return SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(why);
}

/// A call of which an argument decides.
struct Looked {
    long call;
    std::size_t argument;
    std::uint32_t refused;
};

/// Refused with that argument. A descriptor may not send signals to whom it likes, nothing is typed
/// into the terminal of the player, and the tie to it is not loosened.
constexpr std::array kRefusedValues = {
    Looked{SYS_fcntl, 1, F_SETOWN},  Looked{SYS_fcntl, 1, F_SETOWN_EX},
    Looked{SYS_fcntl, 1, F_SETSIG},  Looked{SYS_ioctl, 1, TIOCSTI},
    Looked{SYS_ioctl, 1, FIOSETOWN}, Looked{SYS_ioctl, 1, SIOCSPGRP},
    Looked{SYS_ioctl, 1, TIOCLINUX}, Looked{SYS_prctl, 0, PR_SET_PDEATHSIG},
};

/// Refused with any of these bits: files are opened to be read, if at all.
constexpr std::uint32_t kWriting = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;

constexpr std::array kRefusedBits = {
#if defined(__x86_64__)
    Looked{SYS_open, 1, kWriting},
#endif
    Looked{SYS_openat, 2, kWriting},
};

/// What the library does without: it goes on with an older call.
constexpr std::array kUnknown = {SYS_clone3, SYS_openat2};

/// Each of these leaves the number of the call loaded for the next.
void refuseCalls(std::vector<sock_filter>& filter) {
    for (const long call : kRefused) {
        filter.push_back(unlessSkip(static_cast<std::uint32_t>(call), 1));
        filter.push_back(answer(refuse(EPERM)));
    }
    for (const long call : kUnknown) {
        filter.push_back(unlessSkip(static_cast<std::uint32_t>(call), 1));
        filter.push_back(answer(refuse(ENOSYS)));
    }
}

void refuseArguments(std::vector<sock_filter>& filter) {
    const auto look = [&filter](const Looked& looked, const sock_filter& test) {
        filter.push_back(unlessSkip(static_cast<std::uint32_t>(looked.call), 4));
        filter.push_back(load(argument(looked.argument)));
        filter.push_back(test);
        filter.push_back(answer(refuse(EPERM)));
        filter.push_back(load(kNumber));
    };
    for (const Looked& looked : kRefusedValues) {
        look(looked, unlessSkip(looked.refused, 1));
    }
    for (const Looked& looked : kRefusedBits) {
        look(looked, BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, looked.refused, 0, 1));
    }
}

} // namespace

bool filterCalls() {
    if (kArchitecture == 0) {
        return false;
    }
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
    refuseCalls(filter);
    refuseArguments(filter);
    // Signals to itself: abort() sends one.
    filter.push_back(unlessSkip(SYS_tgkill, 4));
    filter.push_back(load(argument(0)));
    filter.push_back(unlessSkip(static_cast<std::uint32_t>(::getpid()), 1));
    filter.push_back(answer(kAllow));
    filter.push_back(answer(refuse(EPERM)));
    // Limits may be read: the new ones are the third argument.
    filter.push_back(unlessSkip(SYS_prlimit64, 6));
    filter.push_back(load(argument(2)));
    filter.push_back(unlessSkip(0, 3));
    filter.push_back(load(argument(2) + sizeof(std::uint32_t)));
    filter.push_back(unlessSkip(0, 1));
    filter.push_back(answer(kAllow));
    filter.push_back(answer(refuse(EPERM)));
    filter.push_back(answer(kAllow));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

} // namespace tovik::visual
