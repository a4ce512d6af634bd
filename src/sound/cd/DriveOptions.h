// SPDX-License-Identifier: GPL-3.0-or-later
// Which drives an engine has. Any thread.
#pragma once

#include "sound/cd/CdDrive.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tovik::sound {

/// Drives have the letters D to Z; there are no more than these.
inline constexpr std::size_t kMostDrives = 'Z' - 'D' + 1;

/// A drive that was found, not opened yet.
struct FoundDrive {
    std::string name; ///< tells drives apart: a device or the path of an image

    /// Opens it, waiting for it; null when that cannot be. On the drive's own thread.
    std::function<std::unique_ptr<CdDrive>()> open;
};

struct DriveOptions {
    /// Images of discs (BIN/CUE, TOC, NRG), each one more drive behind those of the machine, as
    /// long as there are letters.
    std::vector<std::string> images{};

    /// Finds the drives of the machine, then those of the images. May wait; called on a thread of
    /// the engine, which may outlive the engine. A test puts its own drives here; empty: none.
    std::function<std::vector<FoundDrive>(const std::vector<std::string>& images)> find{};

    /// How often a drive that is watched looks for another disc.
    std::chrono::milliseconds watchPeriod{2000};
};

} // namespace tovik::sound
