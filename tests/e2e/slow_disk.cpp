// SPDX-License-Identifier: GPL-3.0-or-later
// A disk that stalls, for a program that is started with this library in front of the C library's:
// while the file that TOVIK_STALL_GATE names exists, no read of a file whose path holds "stalled"
// returns. The first that waits makes the file of the same name with ".hit" behind it. Any thread.
#include <array>
#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr std::string_view kMarker = "stalled";
constexpr long kLookNs = 10'000'000;

bool isOnSlowDisk(int descriptor) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return length > 0 &&
           std::string_view(path.data(), static_cast<std::size_t>(length)).find(kMarker) !=
               std::string_view::npos;
}

void waitForDisk(int descriptor) {
    const char* const gate = std::getenv("TOVIK_STALL_GATE");
    if (gate == nullptr || ::access(gate, F_OK) != 0 || !isOnSlowDisk(descriptor)) {
        return;
    }
    const std::string hit = std::string(gate) + ".hit";
    ::close(::open(hit.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    const timespec look = {0, kLookNs};
    while (::access(gate, F_OK) == 0) {
        ::nanosleep(&look, nullptr);
    }
}

/// The function of the C library. No lock is held meanwhile: who loads a library reads files while
/// he holds the one that `dlsym` wants.
template <typename Function>
Function next(std::atomic<Function>& found, const char* name) {
    Function function = found.load(std::memory_order_relaxed);
    if (function == nullptr) {
        function = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
        found.store(function, std::memory_order_relaxed);
    }
    return function;
}

using Pread = ssize_t (*)(int, void*, std::size_t, off_t);
using Read = ssize_t (*)(int, void*, std::size_t);

constinit std::atomic<Pread> realPread = nullptr;
constinit std::atomic<Pread> realPread64 = nullptr;
constinit std::atomic<Read> realRead = nullptr;

} // namespace

extern "C" {

ssize_t pread(int descriptor, void* into, std::size_t bytes, off_t offset) {
    waitForDisk(descriptor);
    return next(realPread, "pread")(descriptor, into, bytes, offset);
}

ssize_t pread64(int descriptor, void* into, std::size_t bytes, off_t offset) {
    waitForDisk(descriptor);
    return next(realPread64, "pread64")(descriptor, into, bytes, offset);
}

ssize_t read(int descriptor, void* into, std::size_t bytes) {
    waitForDisk(descriptor);
    return next(realRead, "read")(descriptor, into, bytes);
}
}
