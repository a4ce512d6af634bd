// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-ins that there are, as a process of its own finds them. Interface thread only.
#pragma once

#include "sound/api/VisualOperations.h"
#include "sound/visual/HelperProcess.h"

#include <string>
#include <vector>

namespace tovik::sound {

class VisualList {
public:
    /// Begins to look into the folders; `program` is the one that does it.
    VisualList(const std::string& program, const VisualFolders& folders);

    static constexpr std::size_t kMostFiles = 1000;

    /// Readable when there is news; -1 after the end.
    [[nodiscard]] int descriptor() const noexcept { return helper_.descriptor(); }

    /// Takes in what came. The end is there when all were told, or when the process ended before.
    [[nodiscard]] VisualNews take();

    [[nodiscard]] const std::vector<VisualFile>& files() const noexcept { return files_; }

private:
    HelperProcess helper_;
    std::vector<VisualFile> files_;
};

} // namespace tovik::sound
