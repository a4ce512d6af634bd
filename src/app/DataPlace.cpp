// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DataPlace.h"

#include "app/BuiltWith.h"
#include "app/Upgrade.h"
#include "base/AtomicFile.h"
#include "base/ErrorPlace.h"
#include "base/ErrorStream.h"
#include "base/FileErrors.h"
#include "base/RuntimeError.h"
#include "config/FirstFill.h"
#include "host/DataFolder.h"
#include "host/Paths.h"
#include "host/system/FolderLock.h"
#include "playlist/M3uFormat.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tovik::app {

namespace fs = std::filesystem;

namespace {

/// The piece that a newcomer hears first, in the data folder.
constexpr const char* kFirstPiece = "music/welcome.ogg";
constexpr const char* kFirstPieceTitle = "Welcome to Tovik";
constexpr int kFirstPieceSeconds = 18;

void tell(const std::string& what, const std::string& why) {
    base::tell(what + ": " + why);
}

/// The list that a new data folder begins with.
std::string firstList(const host::Paths& paths) {
    std::string list;
    playlist::appendM3uHead(list);
    playlist::appendM3uEntry(list, kFirstPieceSeconds, kFirstPieceTitle, paths.inside(kFirstPiece));
    return list;
}

bool exists(const std::string& path) {
    std::error_code failure;
    return fs::exists(path, failure);
}

/// A data folder in use without a saved list gets an empty one, which is saved again at the end.
void layEmptyList(const host::Paths& paths) {
    const std::string list = paths.of(host::DataItem::AutosaveList);
    if (!exists(paths.of(host::DataItem::Settings)) || exists(list)) {
        return;
    }
    std::string text;
    playlist::appendM3uHead(text);
    if (const auto failure = base::replaceFile(list, text, base::Flush::No)) {
        tell(list, failure.message());
    }
}

/// Copies the files of a folder and all below it. A running player replaces files meanwhile: what
/// is gone before it is reached is not missed.
std::error_code copyFiles(const fs::path& from, const fs::path& to) {
    std::error_code failure;
    for (fs::directory_iterator entry(from, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const fs::path target = to / entry->path().filename();
        if (entry->is_directory(failure)) {
            fs::create_directory(target, failure);
            failure = failure ? failure : copyFiles(entry->path(), target);
        } else if (!failure && entry->is_regular_file(failure)) {
            fs::copy_file(entry->path(), target, failure);
        }
        if (failure == std::errc::no_such_file_or_directory && !exists(entry->path())) {
            failure.clear();
        }
        if (failure) {
            break;
        }
    }
    return failure;
}

/// Gives the place a folder to work in, if that can be had, and the reason.
void standIn(DataPlace& place, std::error_code failure, const std::string& locale) {
    tell(place.folder, failure.message());
    place.unkept = base::withPlace(base::RuntimeError(base::errorNumberOf(failure)), place.folder);
    auto copy = std::make_unique<PrivateCopy>(place.folder, [&](const std::string& folder) {
        return host::fillStandIn(folder, place.folder, place.shippedFolder, locale);
    });
    if (copy->complete()) {
        place.folder = copy->folder();
        place.standIn = std::move(copy);
    }
}

} // namespace

DataPlace prepareDataFolder(const host::CommandLine& line, const host::Environment& environment) {
    DataPlace place{.folder = host::chooseDataFolder(environment, line.dataFolder),
                    .shippedFolder = host::shippedDataFolder(environment)};
    std::error_code missing; // a folder that cannot be made is told by what follows
    fs::create_directories(place.folder, missing);
    const host::FolderLock alone(place.folder);
    std::error_code failure =
        host::fillDataFolder(place.folder, place.shippedFolder, environment.locale);
    if (!failure) {
        failure = host::tryDataFolder(place.folder);
    }
    if (failure) {
        standIn(place, failure, environment.locale);
    }
    upgradeDataFolder(place.folder, place.shippedFolder, programVersion());
    const host::Paths paths(place.folder);
    base::sweepLeftovers(paths.inside("db"));
    try {
        config::firstFill(paths, config::musicFolder(environment.home, environment.configHome),
                          firstList(paths));
    } catch (const base::RuntimeError& error) {
        tell(place.folder, error.description());
    }
    layEmptyList(paths);
    return place;
}

PrivateCopy::PrivateCopy(const std::string& dataFolder)
    : PrivateCopy(dataFolder, [&dataFolder](const std::string& folder) {
          const host::FolderLock alone(dataFolder);
          return copyFiles(dataFolder, folder);
      }) {}

PrivateCopy::PrivateCopy(const std::string& dataFolder, const Fill& fill) {
    std::error_code failure;
    std::string place = fs::temp_directory_path(failure).string() + "/tovik.XXXXXX";
    if (!failure && mkdtemp(place.data()) == nullptr) {
        failure = base::lastSystemError();
    }
    if (!failure) {
        folder_ = place;
        failure = fill(folder_);
    }
    if (failure) {
        tell("cannot make a temporary copy of " + dataFolder, failure.message());
    }
    complete_ = !failure;
}

PrivateCopy::~PrivateCopy() {
    if (!folder_.empty()) {
        std::error_code failure;
        fs::remove_all(folder_, failure);
    }
}

} // namespace tovik::app
