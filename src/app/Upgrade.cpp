// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Upgrade.h"

#include "base/Digest.h"
#include "base/ErrorStream.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "config/Version.h"
#include "host/EarlierFiles.h"
#include "host/LaidFiles.h"
#include "host/Paths.h"
#include "skin/RenewSkin.h"

#include <array>
#include <filesystem>
#include <system_error>

namespace tovik::app {

namespace {

constexpr std::string_view kSkinPackage = "skins/base.tsf";

/// What the steps have in common.
struct Upgrading {
    const host::Paths& paths;
    const host::Paths& shipped;
    host::LaidFiles& laid;
    bool picturesRenewed = false;
};

/// One step; its failure is told and does not keep the others from it.
using Step = void (*)(Upgrading& upgrading);

/// The data folder's package counts as the one that was shipped while it is as it was laid.
void renewPictures(Upgrading& upgrading) {
    std::string newer;
    const auto failure =
        base::readWholeFile(upgrading.shipped.of(host::DataItem::SkinPackage), newer);
    if (failure == std::errc::no_such_file_or_directory) {
        return;
    }
    base::raiseFailure(failure);
    std::string older;
    const auto& digests = upgrading.laid.digests;
    const auto row = digests.find(kSkinPackage);
    if (base::readWholeFile(upgrading.paths.of(host::DataItem::SkinPackage), older) ||
        row == digests.end() || base::digestOf(older) != row->second) {
        older.clear();
    }
    skin::renewSkin(upgrading.paths, newer, older);
    upgrading.picturesRenewed = true;
}

/// The next start compares pictures that could not be renewed with the older package once more.
void renewFiles(Upgrading& upgrading) {
    base::raiseFailure(
        host::renewShippedFiles(upgrading.paths, upgrading.shipped.dataFolder(), upgrading.laid,
                                upgrading.picturesRenewed ? std::string_view() : kSkinPackage));
}

void takeVersion(Upgrading& upgrading) {
    config::takeVersion(upgrading.paths.of(host::DataItem::Settings),
                        upgrading.shipped.of(host::DataItem::Settings));
}

/// In this order: the pictures are compared with the package that the files renew.
constexpr std::array<Step, 3> kSteps = {renewPictures, renewFiles, takeVersion};

} // namespace

void upgradeDataFolder(const std::string& dataFolder, const std::string& shipped,
                       std::string_view version) {
    const host::Paths paths(dataFolder);
    std::error_code failure;
    if (shipped.empty() || std::filesystem::equivalent(dataFolder, shipped, failure)) {
        return;
    }
    const auto remembered = host::readLaidFiles(paths);
    if (remembered && !host::isNewer(version, remembered->version)) {
        return;
    }
    host::LaidFiles laid = remembered ? *remembered : host::recognisedFiles(paths);
    const host::Paths from(shipped);
    Upgrading upgrading{.paths = paths, .shipped = from, .laid = laid};
    bool whole = true;
    for (const Step step : kSteps) {
        try {
            step(upgrading);
        } catch (const base::RuntimeError& error) {
            base::tell(dataFolder + ": " + error.description());
            whole = false;
        }
    }
    if (whole) {
        laid.version = version;
        failure = host::writeLaidFiles(paths, laid);
        if (failure) {
            base::tell(dataFolder + ": " + failure.message());
        }
    }
}

} // namespace tovik::app
