// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/PathText.h"

#include <algorithm>

namespace tovik::base {

char separatorOf(std::string_view path) noexcept {
    return path.find('/') == std::string_view::npos ? '\\' : '/';
}

std::string_view lastPart(std::string_view path) noexcept {
    const auto separator = path.rfind(separatorOf(path));
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view folderPart(std::string_view path) noexcept {
    const auto separator = path.rfind(separatorOf(path));
    if (separator == std::string_view::npos) {
        return {};
    }
    return path.substr(0, std::max<std::size_t>(separator, 1));
}

std::vector<std::string_view> partsOf(std::string_view path) {
    const char separator = separatorOf(path);
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const auto end = std::min(path.find(separator), path.size());
        if (end > 0) {
            parts.push_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.ends_with('/')) {
        path += '/';
    }
    return path += name;
}

std::string absolutePath(std::string_view name, std::string_view workingFolder) {
    if (name.starts_with('/')) {
        return std::string(name);
    }
    while (name.starts_with("./")) {
        name.remove_prefix(2);
    }
    return joinPath(workingFolder, name);
}

} // namespace tovik::base
