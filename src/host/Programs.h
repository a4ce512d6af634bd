// SPDX-License-Identifier: GPL-3.0-or-later
// Helper programs that run beside this one (launcher, updater, encoders). Interface thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovik::host {

class Programs {
public:
    virtual ~Programs() = default;

    /// The executable behind a helper's name such as "update.exe": that name in the data folder,
    /// then the name without ".exe" there, then without ".exe" on the search path. Nothing when
    /// there is none.
    [[nodiscard]] virtual std::optional<std::string> find(const std::string& name) const = 0;

    /// Starts the helper without a shell, in the data folder, and does not wait for it; it goes
    /// on when this program ends. False when it is not there or cannot be run.
    [[nodiscard]] virtual bool start(const std::string& name,
                                     const std::vector<std::string>& arguments) = 0;
};

} // namespace tovik::host
