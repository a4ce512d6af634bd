// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-ins that there are, found in the background once. Interface thread.
#pragma once

#include "host/Watches.h"
#include "player/Core.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tovik::vis {

class VisualShelf {
public:
    /// Both outlive the shelf. `filled` is called once, when all is known.
    VisualShelf(const player::Core& core, host::Watches& watches, std::function<void()> filled);
    VisualShelf(const VisualShelf&) = delete;
    VisualShelf& operator=(const VisualShelf&) = delete;

    /// Begins to look into the folders; not a second time.
    void look(const sound::VisualFolders& folders);

    /// In the order of the menu, those without a name among them; nothing as long as they are
    /// looked for.
    [[nodiscard]] const std::optional<std::vector<sound::VisualFile>>& files() const {
        return files_;
    }

private:
    void answered();
    void fill();

    const player::Core& core_;
    host::Watches& watches_;
    std::function<void()> filled_;
    std::unique_ptr<host::Watch> watch_;
    sound::Handle listing_ = sound::kNoHandle;
    bool looked_ = false;
    std::optional<std::vector<sound::VisualFile>> files_;
};

} // namespace tovik::vis
