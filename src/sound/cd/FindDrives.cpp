// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/FindDrives.h"

#include "base/ModuleFile.h"

namespace tovik::sound {

namespace {

constexpr const char* kFile = "tovik-cd.so";

} // namespace

std::vector<FoundDrive> findDrives(const std::vector<std::string>& images) {
    static const auto* const module =
        base::findInModule<DriveModule>(kFile, kDrivesSymbol, kDrivesVersion);
    return module == nullptr ? std::vector<FoundDrive>{} : module->find(images);
}

} // namespace tovik::sound
