// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DataPlace.h"

#include "base/AtomicFile.h"
#include "base/ErrorStream.h"
#include "base/FileErrors.h"
#include "base/RuntimeError.h"
#include "config/FirstFill.h"
#include "host/DataFolder.h"
#include "host/Paths.h"
#include "playlist/M3uFormat.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tovik::app {

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

} // namespace

std::string prepareDataFolder(const host::CommandLine& line, const host::Environment& environment) {
    std::string folder = host::chooseDataFolder(environment, line.dataFolder);
    const std::string shipped = host::shippedDataFolder(environment);
    if (const auto failure = host::fillDataFolder(folder, shipped, environment.locale)) {
        tell(folder, failure.message());
        return folder;
    }
    const host::Paths paths(folder);
    base::sweepLeftovers(paths.inside("db"));
    try {
        config::firstFill(paths, config::musicFolder(environment.home, environment.configHome),
                          firstList(paths));
    } catch (const base::RuntimeError& error) {
        tell(folder, error.description());
    }
    return folder;
}

PrivateCopy::PrivateCopy(const std::string& dataFolder) {
    std::error_code failure;
    std::string place = std::filesystem::temp_directory_path(failure).string() + "/tovik.XXXXXX";
    if (!failure && mkdtemp(place.data()) == nullptr) {
        failure = base::lastSystemError();
    }
    if (!failure) {
        folder_ = place;
        std::filesystem::copy(dataFolder, folder_, std::filesystem::copy_options::recursive,
                              failure);
    }
    if (failure) {
        tell("cannot make a temporary copy of " + dataFolder, failure.message());
    }
    complete_ = !failure;
}

PrivateCopy::~PrivateCopy() {
    if (!folder_.empty()) {
        std::error_code failure;
        std::filesystem::remove_all(folder_, failure);
    }
}

} // namespace tovik::app
