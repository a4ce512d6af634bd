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

/// One step; its failure is told and does not keep the others from it.
using Step = void (*)(const host::Paths& paths, const host::Paths& shipped, host::LaidFiles& laid);

/// The data folder's package counts as the one that was shipped while it is as it was laid.
void renewPictures(const host::Paths& paths, const host::Paths& shipped, host::LaidFiles& laid) {
    std::string newer;
    const auto failure = base::readWholeFile(shipped.of(host::DataItem::SkinPackage), newer);
    if (failure == std::errc::no_such_file_or_directory) {
        return;
    }
    base::raiseFailure(failure);
    std::string older;
    const auto row = laid.digests.find(kSkinPackage);
    if (base::readWholeFile(paths.of(host::DataItem::SkinPackage), older) ||
        row == laid.digests.end() || base::digestOf(older) != row->second) {
        older.clear();
    }
    skin::renewSkin(paths, newer, older);
}

void renewFiles(const host::Paths& paths, const host::Paths& shipped, host::LaidFiles& laid) {
    base::raiseFailure(host::renewShippedFiles(paths, shipped.dataFolder(), laid));
}

void takeVersion(const host::Paths& paths, const host::Paths& shipped, host::LaidFiles&) {
    config::takeVersion(paths.of(host::DataItem::Settings), shipped.of(host::DataItem::Settings));
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
    bool whole = true;
    for (const Step step : kSteps) {
        try {
            step(paths, from, laid);
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
