// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipFolder.h"

#include "base/PathText.h"
#include "cd/CdDrives.h"
#include "config/WriteFailure.h"
#include "host/BesideJob.h"

#include <filesystem>
#include <memory>
#include <system_error>

namespace tovik::cd {

std::optional<bool> folderExists(host::MessagePump& pump, const std::string& path) {
    const auto found = std::make_shared<bool>(false);
    const bool goesOn = host::runBeside(
        pump, [found, path] { *found = PathExists(base::folderPart(path), base::lastPart(path)); });
    return goesOn ? std::optional(*found) : std::nullopt;
}

bool makeFolder(host::MessagePump& pump, const std::string& path) {
    return host::runBeside(pump, [path] {
        std::error_code failure;
        std::filesystem::create_directories(path, failure);
        if (failure) {
            config::raiseWriteFailure(failure, path);
        }
    });
}

} // namespace tovik::cd
