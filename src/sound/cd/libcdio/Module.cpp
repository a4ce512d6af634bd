// SPDX-License-Identifier: GPL-3.0-or-later
// The one name that the module shows: what finds drives and images.
#include "sound/cd/FindDrives.h"
#include "sound/cd/libcdio/CdioDrive.h"

#include <cdio/logging.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <set>
#include <system_error>

namespace tovik::sound::libcdio {

namespace {

FoundDrive found(const std::string& path, CdioDrive::Kind kind) {
    return {.name = path, .open = [path, kind] { return std::make_unique<CdioDrive>(path, kind); }};
}

struct FreeDevices {
    void operator()(char** devices) const { cdio_free_device_list(devices); }
};

/// The devices of the machine, each once: several names may stand for the same one.
void addDevices(std::vector<FoundDrive>& drives) {
    driver_id_t driver = DRIVER_DEVICE;
    const std::unique_ptr<char*, FreeDevices> list(cdio_get_devices_ret(&driver));
    std::set<std::string> seen;
    for (char** device = list.get(); device != nullptr && *device != nullptr; ++device) {
        std::error_code error;
        const std::filesystem::path real = std::filesystem::canonical(*device, error);
        if (const std::string path = error ? std::string(*device) : real.string();
            seen.insert(path).second) {
            drives.push_back(found(path, CdioDrive::Kind::device));
        }
    }
}

std::vector<FoundDrive> find(const std::vector<std::string>& images) {
    cdio_loglevel_default = CDIO_LOG_ASSERT; // else it writes on the terminal
    std::vector<FoundDrive> drives;
    addDevices(drives);
    for (const std::string& image : images) {
        drives.push_back(found(image, CdioDrive::Kind::image));
    }
    return drives;
}

} // namespace

} // namespace tovik::sound::libcdio

extern "C" {
[[gnu::visibility("default")]] extern const tovik::sound::DriveModule tovikDrives;

const tovik::sound::DriveModule tovikDrives = {tovik::sound::kDrivesVersion,
                                               &tovik::sound::libcdio::find};
}
