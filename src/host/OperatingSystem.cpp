// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/OperatingSystem.h"

#include <charconv>

#include <sys/utsname.h>

namespace tovik::host {

OperatingSystem OperatingSystem::fromRelease(std::string_view release) {
    OperatingSystem system;
    const char* const end = release.data() + release.size();
    const auto major = std::from_chars(release.data(), end, system.major);
    if (major.ec == std::errc() && major.ptr != end && *major.ptr == '.') {
        std::from_chars(major.ptr + 1, end, system.minor);
    }
    return system;
}

OperatingSystem OperatingSystem::current() {
    utsname names{};
    return ::uname(&names) == 0 ? fromRelease(names.release) : OperatingSystem{};
}

} // namespace tovik::host
