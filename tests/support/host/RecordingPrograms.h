// SPDX-License-Identifier: GPL-3.0-or-later
// Helper programs that are only noted.
#pragma once

#include "host/Programs.h"

#include <set>

namespace tovik::test {

/// Only the helpers in `present` are there.
class RecordingPrograms final : public host::Programs {
public:
    struct Start {
        std::string name;
        std::vector<std::string> arguments;

        bool operator==(const Start&) const = default;
    };

    std::set<std::string> present;
    std::string folder = "/helpers/"; ///< where they are
    std::vector<Start> starts;

    [[nodiscard]] std::optional<std::string> find(const std::string& name) const override {
        return present.contains(name) ? std::optional(folder + name) : std::nullopt;
    }

    [[nodiscard]] bool start(const std::string& name,
                             const std::vector<std::string>& arguments) override {
        starts.push_back({name, arguments});
        return present.contains(name);
    }
};

} // namespace tovik::test
