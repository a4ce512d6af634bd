// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/DrivePath.h"

#include "base/Text.h"

namespace tovik::host {

std::string drivePath(const Paths& paths, std::string_view name) {
    static constexpr std::string_view kDrive = "c:";
    if (base::equalsIgnoringCase(name.substr(0, kDrive.size()), kDrive)) {
        name.remove_prefix(kDrive.size());
    }
    return Paths(paths.of(DataItem::DriveC)).inside(name);
}

} // namespace tovik::host
