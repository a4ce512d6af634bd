// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/MachineDrives.h"

#include "sound/cd/FindDrives.h"

#include <utility>

namespace tovik::sound {

DriveOptions machineDrives(std::vector<std::string> images) {
    DriveOptions options;
    options.images = std::move(images);
    options.find = &findDrives;
    return options;
}

} // namespace tovik::sound
