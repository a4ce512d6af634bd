// SPDX-License-Identifier: GPL-3.0-or-later
// Helper programs where nobody sits at the screen. Interface thread.
#pragma once

#include "host/Paths.h"
#include "host/Programs.h"

#include <optional>
#include <string>
#include <vector>

namespace tovik::host {

/// Finds helpers as usual and starts none; a start of one that is there counts as done.
class UnattendedPrograms final : public Programs {
public:
    /// `paths` must outlive the object; `searchPath` is as in PATH.
    UnattendedPrograms(const Paths& paths, std::string searchPath);

    [[nodiscard]] std::optional<std::string> find(const std::string& name) const override;
    [[nodiscard]] bool start(const std::string& name,
                             const std::vector<std::string>& arguments) override;

private:
    const Paths& paths_;
    std::string searchPath_;
};

} // namespace tovik::host
