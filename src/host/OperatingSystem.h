// SPDX-License-Identifier: GPL-3.0-or-later
// What the program knows of the system it runs on. Any thread.
#pragma once

#include <string_view>

namespace tovik::host {

/// The version of the kernel.
struct OperatingSystem {
    int major = 0;
    int minor = 0;

    /// From a release text such as "6.1.0-13-amd64"; what cannot be read is 0.
    [[nodiscard]] static OperatingSystem fromRelease(std::string_view release);

    /// The system this process runs on.
    [[nodiscard]] static OperatingSystem current();

    bool operator==(const OperatingSystem&) const = default;
};

} // namespace tovik::host
