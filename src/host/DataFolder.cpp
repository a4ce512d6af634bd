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

/// Folders without which the player has no words or no looks. A data folder that an earlier version
/// filled may lack them.
constexpr std::array<std::string_view, 2> kNeededFolders{"Languages", "skins"};

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

/// Copies what is missing, so that a second attempt goes on where the first one ended. A file
/// comes into being whole: it is copied under another name and renamed.
std::error_code copyMissing(const fs::path& from, const fs::path& to) {
    std::error_code failure;
    fs::create_directories(to, failure);
    for (fs::recursive_directory_iterator entry(from, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const fs::path target = to / entry->path().lexically_relative(from);
        if (entry->is_directory(failure)) {
            fs::create_directory(target, failure);
        } else if (!fs::exists(target, failure)) {
            fs::path part = target;
            part += ".part";
            fs::copy_file(entry->path(), part, fs::copy_options::overwrite_existing, failure);
            if (!failure) {
                fs::permissions(part, kOwnerWrites, fs::perm_options::add, failure);
            }
            if (!failure) {
                fs::rename(part, target, failure);
            }
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

std::error_code addNeededFolders(const Paths& paths, const std::string& shipped) {
    for (const std::string_view name : kNeededFolders) {
        const fs::path from = fs::path(shipped) / name;
        std::error_code failure;
        if (fs::is_directory(from, failure) && !fs::exists(paths.inside(name), failure)) {
            // Under another name until it is whole, so that a copy broken off is begun again.
            const fs::path part = fs::path(paths.dataFolder()) / (std::string(name) + ".part");
            failure = copyMissing(from, part);
            if (!failure) {
                fs::rename(part, fs::path(paths.dataFolder()) / name, failure);
            }
            if (failure) {
                return failure;
            }
        }
    }
    return {};
}

std::error_code leaveFirstRun(const Paths& paths, const std::string& locale) {
    return base::replaceFile(paths.of(DataItem::FirstRun),
                             "[Firstrun]\r\nLNG=" + languageOfLocale(locale, paths) + "\r\n",
                             base::Flush::No);
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
    // A relative data home is to be ignored, says the standard behind the variable.
    const std::string dataHome = environment.dataHome.starts_with('/')
                                     ? environment.dataHome
                                     : base::joinPath(environment.home, kDefaultDataHome);
    return base::joinPath(dataHome, kFolderName);
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
        return shipped.empty() || !hasSettings(paths) ? std::error_code()
                                                      : addNeededFolders(paths, shipped);
    }
    const std::string mark = base::joinPath(dataFolder, kFillingMark);
    std::error_code failure;
    fs::create_directories(base::folderPart(paths.of(DataItem::Settings)), failure);
    if (!failure) {
        failure = base::replaceFile(mark, {}, base::Flush::No);
    }
    if (!failure && !shipped.empty()) {
        failure = copyMissing(shipped, dataFolder);
    }
    if (!failure) {
        failure = leaveFirstRun(paths, locale);
    }
    if (!failure) {
        fs::remove(mark, failure);
    }
    return failure;
}

} // namespace tovik::host
