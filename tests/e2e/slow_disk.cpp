// SPDX-License-Identifier: GPL-3.0-or-later
// A disk that stalls, for a program that is started with this library in front of the C library's:
// while the file that TOVIK_STALL_GATE names exists, no read of a file whose path holds "stalled"
// returns. The first that waits makes the file of the same name with ".hit" behind it. Any thread.
#include <array>
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

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

using Pread = ssize_t (*)(int, void*, std::size_t, off_t);

} // namespace

extern "C" {

ssize_t pread(int descriptor, void* into, std::size_t bytes, off_t offset) {
    static const auto real = next<Pread>("pread");
    waitForDisk(descriptor);
    return real(descriptor, into, bytes, offset);
}

ssize_t pread64(int descriptor, void* into, std::size_t bytes, off_t offset) {
    static const auto real = next<Pread>("pread64");
    waitForDisk(descriptor);
    return real(descriptor, into, bytes, offset);
}

ssize_t read(int descriptor, void* into, std::size_t bytes) {
    static const auto real = next<ssize_t (*)(int, void*, std::size_t)>("read");
    waitForDisk(descriptor);
    return real(descriptor, into, bytes);
}
}
