// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ProgramLookup.h"

#include "base/PathText.h"
#include "base/Text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace tovik::host {

namespace {

constexpr std::string_view kExtension = ".exe";

bool isProgram(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(path, failure) && ::access(path.c_str(), X_OK) == 0;
}

std::string_view withoutExtension(std::string_view name) {
    if (name.size() > kExtension.size() &&
        base::equalsIgnoringCase(name.substr(name.size() - kExtension.size()), kExtension)) {
        name.remove_suffix(kExtension.size());
    }
    return name;
}

} // namespace

std::optional<std::string> findProgram(std::string_view name, const Paths& paths,
                                       std::string_view searchPath) {
    const std::string_view plain = withoutExtension(name);
    for (const std::string_view candidate : {name, plain}) {
        if (std::string path = paths.inside(candidate); isProgram(path)) {
            return path;
        }
    }
    const std::string_view file = base::lastPart(plain);
    while (!searchPath.empty()) {
        const auto end = std::min(searchPath.find(':'), searchPath.size());
        const std::string_view folder = searchPath.substr(0, end);
        if (folder.starts_with('/')) {
            if (std::string path = base::joinPath(folder, file); isProgram(path)) {
                return path;
            }
        }
        searchPath.remove_prefix(std::min(end + 1, searchPath.size()));
    }
    return std::nullopt;
}

} // namespace tovik::host
