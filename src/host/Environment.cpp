// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Environment.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tovik::host {

namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string firstSet(std::initializer_list<const char*> names) {
    for (const char* const name : names) {
        if (std::string value = variable(name); !value.empty()) {
            return value;
        }
    }
    return {};
}

} // namespace

Environment Environment::current() {
    std::error_code failure; // a folder that cannot be told stays empty
    return {.home = variable("HOME"),
            .dataHome = variable("XDG_DATA_HOME"),
            .configHome = variable("XDG_CONFIG_HOME"),
            .locale = firstSet({"LC_ALL", "LC_MESSAGES", "LANG"}),
            .searchPath = variable("PATH"),
            .workingFolder = std::filesystem::current_path(failure).native(),
            .executableFolder =
                std::filesystem::read_symlink("/proc/self/exe", failure).parent_path().native()};
}

} // namespace tovik::host
