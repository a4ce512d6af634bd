// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in with the one fault that it is built with.
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>
#include <tovik/vis.h>
#include <unistd.h>

namespace {

enum Fault {
    none, ///< draws its count of pictures, and where it was clicked
    crash_at_load,
    crash_at_begin,
    crash_at_100,
    endless_loop,
    endless_load,
    exit_0,
    memory_without_end,
    writes_behind,
    writes_before,
    writes_everywhere,
    prints_a_gigabyte,
    forks,
    starts_threads,
    says_nonsense,
    floods,
    wants_not,
    old_version,
    no_name,
    odd_name,     ///< with characters that no name has
    names_itself, ///< tells an odd name past the one who asks for it
    pries,        ///< draws a bit for each thing that it could do and should not
};

constexpr Fault kFault = TOVIK_FAULT;
constexpr std::uint32_t kBadAt = 3; ///< the picture at which what is no fault of the start shows
constexpr std::uint32_t kLateBadAt = 100;
constexpr int kSocket = 3;

void crash() {
    volatile int* nowhere = nullptr;
    *nowhere = 1;
}

[[maybe_unused]] const int kAtLoad = [] {
    if constexpr (kFault == crash_at_load) {
        crash();
    }
    for (std::atomic<bool> on = kFault == endless_load; on.load();) {
    }
    if constexpr (kFault == names_itself) {
        constexpr std::string_view kOdd("It\x1b[1m\xc2\x9bself\0hidden\nmore", 24);
        for (int descriptor = kSocket; descriptor < 16; ++descriptor) {
            static_cast<void>(::write(descriptor, kOdd.data(), kOdd.size()));
        }
        std::_Exit(0);
    }
    return 0;
}();

struct State {
    std::uint32_t pictures = 0;
    std::uint32_t clicked = 0;
    std::uint32_t children = 0;
};

void takeAllMemory() {
    constexpr std::size_t kPiece = 1U << 20U;
    for (;;) {
        auto* const piece = static_cast<volatile char*>(std::malloc(kPiece));
        for (std::size_t i = 0; i < kPiece; i += 4096) {
            piece[i] = 1;
        }
    }
}

void printGigabyte() {
    const std::array<char, 1U << 16U> line{};
    for (int i = 0; i < 1 << 14; ++i) {
        std::fwrite(line.data(), 1, line.size(), (i & 1) != 0 ? stdout : stderr);
    }
    std::fflush(nullptr);
}

/// How often it could.
std::uint32_t forkMany() {
    std::uint32_t children = 0;
    for (int i = 0; i < 1000; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) {
                ::pause();
            }
        }
        children += child > 0 ? 1 : 0;
    }
    return children;
}

void startThreads() {
    for (int i = 0; i < 100; ++i) {
        std::thread([] {
            for (;;) {
                ::pause();
            }
        }).detach();
    }
}

void sayNonsense() {
    const std::array<std::uint32_t, 2> lie = {77, 77};
    static_cast<void>(::send(kSocket, lie.data(), sizeof lie, MSG_NOSIGNAL));
}

/// As many pictures as it can say.
void flood() {
    const std::array<std::uint32_t, 2> drawn = {0, 1};
    for (;;) {
        static_cast<void>(::send(kSocket, drawn.data(), sizeof drawn, MSG_NOSIGNAL));
    }
}

/// Each bit is something that must not be possible.
std::uint32_t pry() {
    const pid_t player = ::getppid();
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "/proc/%d/mem", player);
    std::uint32_t could = 0;
    const auto note = [&](int bit, bool done) {
        could |= done ? 1U << static_cast<unsigned>(bit) : 0;
    };
    note(0, ::open(name.data(), O_RDWR) >= 0);
    note(1, ::open(name.data(), O_RDONLY) >= 0);
    const bool attached = ::ptrace(PTRACE_ATTACH, player, nullptr, nullptr) == 0;
    note(2, attached);
    if (attached) { // it is to go on, and tell
        ::waitpid(player, nullptr, __WALL);
        ::ptrace(PTRACE_DETACH, player, nullptr, nullptr);
    }
    std::array<char, 8> bytes{};
    iovec here{bytes.data(), bytes.size()};
    iovec there{bytes.data(), bytes.size()};
    note(3, ::process_vm_readv(player, &here, 1, &there, 1, 0) >= 0);
    note(4, ::kill(player, 0) == 0);
    note(5, ::socket(AF_INET, SOCK_STREAM, 0) >= 0);
    note(6, ::open("/tmp/tovik-must-not-be-there", O_WRONLY | O_CREAT, 0600) >= 0);
    for (int descriptor = kSocket + 1; descriptor < 64; ++descriptor) {
        note(7, ::fcntl(descriptor, F_GETFD) >= 0);
    }
    note(9, std::getenv("DISPLAY") != nullptr || std::getenv("XDG_RUNTIME_DIR") != nullptr);
    note(10, ::getpriority(PRIO_PROCESS, 0) < 5);
    note(11, ::sigqueue(player, 0, {}) == 0);
    note(12, ::fcntl(kSocket, F_SETOWN, player) == 0);
    note(13, ::fcntl(kSocket, F_SETSIG, SIGKILL) == 0);
    // Where the call is refused there is no looking for the file, either.
    const char* const file = "/tmp/tovik-must-not-be-there";
    const auto tried = [&note](int bit, int result) { note(bit, result == 0 || errno != EPERM); };
    ::execl(file, file, nullptr); // another program would not tell what it could
    tried(8, -1);
    tried(14, ::truncate(file, 0));
    tried(15, ::chmod(file, 0));
    tried(16, ::chown(file, ::getuid(), ::getgid()));
    tried(17, ::setxattr(file, "user.x", "x", 1, 0));
    tried(18, ::open("/proc/self/exe", O_RDONLY | O_TRUNC));
    tried(19, ::rename(file, file));
    tried(20, ::unlink(file));
    tried(21, ::mkdir("/proc/tovik-must-not-be-there", 0700));
    tried(22, ::ioctl(0, TIOCSTI, "x"));
    tried(12, ::ioctl(kSocket, FIOSETOWN, &player));
    tried(12, ::ioctl(kSocket, SIOCSPGRP, &player));
    cpu_set_t all;
    CPU_ZERO(&all);
    tried(23, ::sched_setaffinity(player, 0, &all));
    return could;
}

void misbehave(State& state, const tovik_vis_frame& frame) {
    constexpr std::size_t kFar = std::size_t{4} << 20U;
    const std::size_t bytes = std::size_t{frame.width} * frame.height * sizeof(std::uint32_t);
    auto* const first = reinterpret_cast<char*>(frame.pixels);
    switch (kFault) {
    case endless_loop:
        for (std::atomic<bool> on = true; on.load();) {
        }
        break;
    case exit_0:
        std::exit(0);
    case memory_without_end:
        takeAllMemory();
        break;
    case writes_behind:
        std::memset(first + bytes, 1, kFar);
        break;
    case writes_before:
        for (std::size_t i = 1; i < kFar; ++i) {
            *(first - i) = 1;
        }
        break;
    case writes_everywhere:
        for (std::uintptr_t place = 4096;; place += 4096) {
            *reinterpret_cast<volatile char*>(place * 7919) = 1;
        }
        break;
    case prints_a_gigabyte:
        printGigabyte();
        break;
    case forks:
        state.children = forkMany();
        break;
    case starts_threads:
        startThreads();
        break;
    case says_nonsense:
        sayNonsense();
        break;
    case floods:
        flood();
        break;
    default:
        break;
    }
}

void* begin(std::uint32_t /*width*/, std::uint32_t /*height*/, const char* /*settings*/) {
    if constexpr (kFault == crash_at_begin) {
        crash();
    }
    return kFault == wants_not ? nullptr : new State;
}

void render(void* self, const tovik_vis_frame* frame) {
    State& state = *static_cast<State*>(self);
    ++state.pictures;
    if (state.pictures == kBadAt) {
        misbehave(state, *frame);
    }
    if (kFault == crash_at_100 && state.pictures == kLateBadAt) {
        crash();
    }
    for (std::size_t i = 0; i < std::size_t{frame->width} * frame->height; ++i) {
        frame->pixels[i] = state.pictures;
    }
    // What it was told, for who looks: sound, click, size; and what it could.
    frame->pixels[1] = static_cast<std::uint32_t>(frame->left[TOVIK_VIS_SAMPLES - 1] * 1000);
    frame->pixels[2] = static_cast<std::uint32_t>(frame->right[TOVIK_VIS_SAMPLES - 1] * 1000);
    frame->pixels[3] = static_cast<std::uint32_t>(frame->spectrum[7] * 1000);
    frame->pixels[4] = state.clicked;
    frame->pixels[5] = frame->width << 16U | frame->height;
    frame->pixels[6] = state.children;
    if constexpr (kFault == pries) {
        frame->pixels[0] = pry();
    }
}

void click(void* self, std::int32_t x, std::int32_t y) {
    static_cast<State*>(self)->clicked = static_cast<std::uint32_t>(x << 16 | y);
}

#define TEXT_OF(word) #word
#define NAME_OF(word) TEXT_OF(word)

constexpr tovik_vis kVis = {
    .version = kFault == old_version ? 0 : TOVIK_VIS_VERSION,
    .size = sizeof(tovik_vis),
    .name = kFault == no_name    ? ""
            : kFault == odd_name ? "O\001d\177\xc2\x85\td name\nand more"
                                 : "Faulty " NAME_OF(TOVIK_FAULT),
    .begin = begin,
    .render = render,
    .click = click,
    .resize = nullptr,
    .end = [](void* self) { delete static_cast<State*>(self); },
};

} // namespace

const tovik_vis* tovik_vis_get() {
    return &kVis;
}
