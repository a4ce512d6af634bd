// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/DataFolder.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "host/LocaleLanguage.h"
#include "host/Paths.h"

#include <array>
#include <filesystem>
#include <string_view>

#include <unistd.h>

namespace tovik::host {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFolderName = "tovik";
constexpr std::string_view kDefaultDataHome = ".local/share";
constexpr std::array<std::string_view, 3> kShippedPlaces{"data", "../share/tovik", "../../data"};

/// Stands in the folder while the first fill runs.
constexpr std::string_view kFillingMark = ".filling";

/// Folders whose files give the player its words, its looks, and whom to ask about discs. A data
/// folder that an earlier version filled, or somebody tidied, may lack some.
constexpr std::array<std::string_view, 3> kNeededFolders{"Languages", "skins", "CDDB"};

/// What a stand-in takes over.
constexpr std::array<std::string_view, 4> kTakenOver{"db", "Languages", "skins", "CDDB"};

/// As many bytes as settings have: a full disk may still have room for an empty file.
constexpr std::size_t kTrialBytes = 8192;
constexpr std::string_view kTrialName = "db/.trial";

/// Holds the settings, the saved list and the log.
constexpr std::string_view kSettingsFolder = "db";

/// What is shipped is never written to as it is; a copy must be.
constexpr fs::perms kOwnerWrites = fs::perms::owner_write;

bool isPortable(const std::string& folder) {
    const std::string settings = Paths(folder).of(DataItem::Settings);
    return !folder.empty() && ::access(settings.c_str(), W_OK) == 0;
}

bool wantsFill(const std::string& folder) {
    std::error_code failure;
    if (!fs::exists(folder, failure)) {
        return true;
    }
    return fs::exists(base::joinPath(folder, kFillingMark), failure) ||
           fs::is_empty(folder, failure);
}

/// A file comes into being whole: it is copied under another name and renamed.
std::error_code copyFile(const fs::path& from, const fs::path& to) {
    std::error_code failure;
    fs::path part = to;
    part += ".part";
    fs::copy_file(from, part, fs::copy_options::overwrite_existing, failure);
    if (!failure) {
        fs::permissions(part, kOwnerWrites, fs::perm_options::add, failure);
    }
    if (!failure) {
        fs::rename(part, to, failure);
    }
    return failure;
}

/// Copies what the data folder lacks of a shipped folder ("" for all that is shipped), so that a
/// second attempt goes on where the first one ended.
std::error_code copyMissing(const std::string& shipped, std::string_view folder,
                            const Paths& paths) {
    const fs::path from = fs::path(shipped) / folder;
    std::error_code failure;
    if (!fs::is_directory(from, failure)) {
        return {};
    }
    fs::create_directories(paths.inside(folder), failure);
    for (fs::recursive_directory_iterator entry(from, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const fs::path target = paths.inside(entry->path().lexically_relative(shipped).native());
        if (entry->is_directory(failure)) {
            fs::create_directory(target, failure);
        } else if (!failure && !fs::exists(target, failure)) {
            failure = copyFile(entry->path(), target);
        }
        if (failure) {
            break;
        }
    }
    return failure;
}

bool hasSettings(const Paths& paths) {
    std::error_code failure;
    return fs::exists(paths.of(DataItem::Settings), failure);
}

std::error_code addNeededFiles(const Paths& paths, const std::string& shipped) {
    for (const std::string_view folder : kNeededFolders) {
        if (const std::error_code failure = copyMissing(shipped, folder, paths)) {
            return failure;
        }
    }
    return {};
}

/// Whether the folder is one that the player filled, though its settings are gone.
bool lostItsSettings(const Paths& paths) {
    std::error_code failure;
    return !hasSettings(paths) && fs::is_directory(paths.inside(kSettingsFolder), failure) &&
           fs::is_directory(paths.of(DataItem::Languages), failure);
}

std::error_code leaveFirstRun(const Paths& paths, const std::string& locale) {
    return base::replaceFile(paths.of(DataItem::FirstRun),
                             "[Firstrun]\r\nLNG=" + languageOfLocale(locale, paths) + "\r\n",
                             base::Flush::No);
}

/// The settings as at the first start; all else that the user has stays.
std::error_code layNewSettings(const Paths& paths, const std::string& shipped,
                               const std::string& locale) {
    const std::error_code failure = copyMissing(shipped, kSettingsFolder, paths);
    return failure ? failure : leaveFirstRun(paths, locale);
}

} // namespace

std::string chooseDataFolder(const Environment& environment,
                             const std::optional<std::string>& asked) {
    if (asked) {
        return base::absolutePath(*asked, environment.workingFolder);
    }
    if (isPortable(environment.executableFolder)) {
        return environment.executableFolder;
    }
    return base::joinPath(folderOf(environment.dataHome, environment.home, kDefaultDataHome),
                          kFolderName);
}

std::optional<std::string> homeProblem(const Environment& environment,
                                       const std::optional<std::string>& asked) {
    if (!environment.home.empty() && !environment.home.starts_with('/')) {
        return "HOME is no absolute path: \"" + environment.home + "\"";
    }
    const bool needsHome = !asked && !isPortable(environment.executableFolder) &&
                           !environment.dataHome.starts_with('/');
    if (environment.home.empty() && needsHome) {
        return "no home folder is known: please set HOME";
    }
    return std::nullopt;
}

std::string shippedDataFolder(const Environment& environment) {
    for (const std::string_view place : kShippedPlaces) {
        const fs::path folder = (fs::path(environment.executableFolder) / place).lexically_normal();
        std::error_code failure;
        if (fs::is_directory(folder / "db", failure)) {
            return folder.native();
        }
    }
    return {};
}

std::error_code fillDataFolder(const std::string& dataFolder, const std::string& shipped,
                               const std::string& locale) {
    const Paths paths(dataFolder);
    if (!wantsFill(dataFolder)) {
        std::error_code failure;
        if (!shipped.empty() && lostItsSettings(paths)) {
            failure = layNewSettings(paths, shipped, locale);
        }
        return failure || shipped.empty() || !hasSettings(paths) ? failure
                                                                 : addNeededFiles(paths, shipped);
    }
    const std::string mark = base::joinPath(dataFolder, kFillingMark);
    std::error_code failure;
    fs::create_directories(base::folderPart(paths.of(DataItem::Settings)), failure);
    if (!failure) {
        failure = base::replaceFile(mark, {}, base::Flush::No);
    }
    if (!failure && !shipped.empty()) {
        failure = copyMissing(shipped, {}, paths);
    }
    if (!failure) {
        failure = leaveFirstRun(paths, locale);
    }
    if (!failure) {
        fs::remove(mark, failure);
    }
    return failure;
}

std::error_code tryDataFolder(const std::string& dataFolder) {
    const std::string trial = Paths(dataFolder).inside(kTrialName);
    std::error_code failure =
        base::replaceFile(trial, std::string(kTrialBytes, ' '), base::Flush::No);
    if (!failure) {
        fs::remove(trial, failure);
    }
    return failure;
}

std::error_code fillStandIn(const std::string& standIn, const std::string& dataFolder,
                            const std::string& shipped, const std::string& locale) {
    const Paths from(dataFolder);
    const Paths paths(standIn);
    for (const std::string_view name : kTakenOver) {
        // What cannot be read is taken from what is shipped.
        static_cast<void>(
            copyMissing(dataFolder, fs::path(from.inside(name)).filename().native(), paths));
    }
    const bool isFirst = !hasSettings(paths);
    std::error_code failure;
    fs::create_directories(base::folderPart(paths.of(DataItem::Settings)), failure);
    if (!failure && !shipped.empty()) {
        failure = copyMissing(shipped, "", paths);
    }
    return failure || !isFirst ? failure : leaveFirstRun(paths, locale);
}

} // namespace tovik::host
