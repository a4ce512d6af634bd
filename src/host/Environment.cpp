// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Environment.h"

#include "base/PathText.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <system_error>
#include <utility>

#include <pwd.h>
#include <unistd.h>

namespace tovik::host {

namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// The home of the user who runs the process; empty where the database does not know the user.
std::string homeInDatabase() {
    constexpr std::size_t kMostBytes = std::size_t{1} << 20;
    passwd entry{};
    passwd* found = nullptr;
    std::string room(1024, '\0');
    while (::getpwuid_r(::getuid(), &entry, room.data(), room.size(), &found) == ERANGE &&
           room.size() < kMostBytes) {
        room.resize(room.size() * 2);
    }
    return found == nullptr || found->pw_dir == nullptr ? std::string() : found->pw_dir;
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
    std::string home = variable("HOME");
    std::string runtime = variable("XDG_RUNTIME_DIR");
    return {.home = home.empty() ? homeInDatabase() : std::move(home),
            .dataHome = variable("XDG_DATA_HOME"),
            .configHome = variable("XDG_CONFIG_HOME"),
            .cacheHome = variable("XDG_CACHE_HOME"),
            .runtimeFolder = runtime.empty()
                                 ? std::filesystem::temp_directory_path(failure).string()
                                 : std::move(runtime),
            .locale = firstSet({"LC_ALL", "LC_MESSAGES", "LANG"}),
            .activationToken = variable("XDG_ACTIVATION_TOKEN"),
            .searchPath = variable("PATH"),
            .workingFolder = std::filesystem::current_path(failure).native(),
            .executableFolder =
                std::filesystem::read_symlink("/proc/self/exe", failure).parent_path().native()};
}

std::string folderOf(const std::string& variable, const std::string& home,
                     std::string_view otherwise) {
    return variable.starts_with('/') ? variable : base::joinPath(home, otherwise);
}

} // namespace tovik::host
