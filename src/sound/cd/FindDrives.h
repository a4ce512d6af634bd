// SPDX-License-Identifier: GPL-3.0-or-later
// The drives of the machine and images of discs, by libcdio. That is a module of ours beside the
// program, loaded when drives are looked for: no start pays for it. Any thread.
#pragma once

#include "sound/cd/DriveOptions.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tovik::sound {

/// What the module hands over, under the name `kDrivesSymbol`.
struct DriveModule {
    std::uint32_t version; ///< kDrivesVersion of when it was built
    std::vector<FoundDrive> (*find)(const std::vector<std::string>& images);
};

inline constexpr std::uint32_t kDrivesVersion = 1;
inline constexpr const char* kDrivesSymbol = "tovikDrives";

/// Finds drives by the module, which the first call loads. None where there is no module.
[[nodiscard]] std::vector<FoundDrive> findDrives(const std::vector<std::string>& images);

} // namespace tovik::sound
