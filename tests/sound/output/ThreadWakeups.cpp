// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/ThreadWakeups.h"

#include <filesystem>
#include <fstream>

namespace tovik::sound {

std::optional<long> timesFallenAsleep(const std::string& threadName) {
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        if (name != threadName) {
            continue;
        }
        std::ifstream status(task.path() / "status");
        for (std::string field; status >> field;) {
            long count = 0;
            if (field == "voluntary_ctxt_switches:" && status >> count) {
                return count;
            }
        }
    }
    return std::nullopt;
}

} // namespace tovik::sound
