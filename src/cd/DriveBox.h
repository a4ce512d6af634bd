// SPDX-License-Identifier: GPL-3.0-or-later
// The box `cmbCDDrives` as a record: the drives by letter and name, and which one is chosen.
// Interface thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tovik::cd {

struct DriveBox {
    struct Entry {
        std::string text;      ///< "D: PIONEER DVD-RW"
        std::int32_t ItemData; ///< the drive, as the sound library counts

        [[nodiscard]] bool operator==(const Entry&) const = default;
    };

    std::vector<Entry> entries;
    std::int32_t ListIndex = -1; ///< -1: none

    /// Called when entries or choice have become others; by whom shows the box.
    std::function<void()> changed;
};

} // namespace tovik::cd
