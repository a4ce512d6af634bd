// SPDX-License-Identifier: GPL-3.0-or-later
// Helper programs as processes of their own. Interface thread.
#pragma once

#include "host/Paths.h"
#include "host/Programs.h"

namespace tovik::host {

/// Starts helpers that belong to nobody: they outlive this program and leave no trace in it.
class DetachedPrograms final : public Programs {
public:
    /// `paths` must outlive the object; `searchPath` is as in PATH.
    DetachedPrograms(const Paths& paths, std::string searchPath);

    [[nodiscard]] std::optional<std::string> find(const std::string& name) const override;
    [[nodiscard]] bool start(const std::string& name,
                             const std::vector<std::string>& arguments) override;

private:
    const Paths& paths_;
    std::string searchPath_;
};

} // namespace tovik::host
