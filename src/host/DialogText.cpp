// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/DialogText.h"

#include "base/PathText.h"

#include <algorithm>

namespace tovik::host {

namespace {

/// The text up to the separator; it and the separator are taken from `rest`.
std::string_view takePart(std::string_view& rest, char separator) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

/// The folder, without "/" at its end, that holds all paths: some dialogs let one choose from
/// several folders at once.
std::string_view commonFolder(std::span<const std::string> paths) {
    std::string_view folder = paths.front();
    folder = folder.substr(0, folder.rfind('/'));
    for (const std::string& path : paths) {
        while (!folder.empty() && (!path.starts_with(folder) || path.size() == folder.size() ||
                                   path[folder.size()] != '/')) {
            folder = folder.substr(0, folder.rfind('/'));
        }
    }
    return folder;
}

} // namespace

std::vector<FileFilter> filtersOf(std::string_view text) {
    std::vector<FileFilter> filters;
    while (!text.empty()) {
        const std::string_view label = takePart(text, '|');
        std::string_view patterns = takePart(text, '|');
        if (patterns.empty()) {
            continue;
        }
        FileFilter& filter = filters.emplace_back();
        filter.name = label;
        while (!patterns.empty()) {
            filter.patterns.emplace_back(takePart(patterns, ';'));
        }
    }
    return filters;
}

std::string chosenText(std::span<const std::string> paths) {
    std::string text;
    if (paths.empty()) {
        return text;
    }
    if (paths.size() == 1) {
        text = paths.front();
        text += '\0';
    } else {
        const std::string_view folder = commonFolder(paths);
        text = folder.empty() ? "/" : folder;
        text += '\0';
        for (const std::string& path : paths) {
            text.append(path, folder.size() + 1);
            text += '\0';
        }
    }
    text += '\0';
    return text;
}

} // namespace tovik::host
