// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/FirstFill.h"

#include "base/AtomicFile.h"
#include "base/LineReader.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "config/Settings.h"
#include "config/WriteFailure.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace tovik::config {

namespace {

constexpr std::string_view kMusicVariable = "XDG_MUSIC_DIR=\"";
constexpr std::string_view kHomeVariable = "$HOME";

bool exists(const std::string& path) {
    std::error_code failure;
    return std::filesystem::exists(path, failure);
}

/// What stands up to the closing quote, a backslash taking the next character as it is.
std::string unquoted(std::string_view text) {
    std::string value;
    for (std::size_t at = 0; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) {
            ++at;
        }
        value += text[at];
    }
    return value;
}

/// A folder of "user-dirs.dirs": absolute, or told from the home as "$HOME/..."; nothing for any
/// other text.
std::optional<std::string> folderFrom(std::string_view line, const std::string& home) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(kMusicVariable)) {
        return std::nullopt;
    }
    std::string folder = unquoted(line.substr(kMusicVariable.size()));
    if (folder == kHomeVariable || folder.starts_with(std::string(kHomeVariable) + "/")) {
        folder.replace(0, kHomeVariable.size(), home);
    }
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
    return folder.starts_with('/') ? std::optional(folder) : std::nullopt;
}

void fillFolders(const std::string& settingsPath, const std::string& folder) {
    clsXML xml;
    if (!xml.OpenXML(settingsPath, XmlSource::FilePath)) {
        return;
    }
    for (const std::string_view key : kFolderKeys) {
        fillFolder(xml, key, folder);
    }
    xml.Save(settingsPath);
}

} // namespace

void fillFolder(clsXML& xml, std::string_view key, const std::string& folder) {
    const std::string path = Settings::pathOf(key);
    if (xml.NodeCount(path) > 0 && xml.ReadNode(path).empty()) {
        xml.WriteNode(path, folder);
    }
}

std::string musicFolder(const std::string& home, const std::string& configHome) {
    const std::string folder =
        configHome.starts_with('/') ? configHome : base::joinPath(home, ".config");
    std::string found = base::joinPath(home, "Music");
    std::string text; // empty where there is no such file
    static_cast<void>(base::readWholeFile(base::joinPath(folder, "user-dirs.dirs"), text));
    base::LineReader lines(text);
    while (const auto line = lines.next()) { // the last one counts, as in a shell
        found = folderFrom(*line, home).value_or(found);
    }
    return found;
}

void firstFill(const host::Paths& paths, const std::string& musicFolder,
               std::string_view firstList) {
    if (!exists(paths.of(host::DataItem::FirstRun))) {
        return;
    }
    fillFolders(paths.of(host::DataItem::Settings), musicFolder);
    const std::string list = paths.of(host::DataItem::AutosaveList);
    if (!firstList.empty() && !exists(list)) {
        if (const auto failure = base::replaceFile(list, firstList, base::Flush::Yes)) {
            raiseWriteFailure(failure, list);
        }
    }
}

} // namespace tovik::config
