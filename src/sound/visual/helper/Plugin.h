// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in in its process. The one thread of that process.
#pragma once

#include "sound/visual/helper/SharedPicture.h"
#include "sound/visual/HelperMessages.h"

#include <chrono>
#include <string>
#include <tovik/vis.h>

namespace tovik::visual {

class Plugin {
public:
    /// Loads a file, whose own code runs then. It is never closed again.
    explicit Plugin(const char* path);

    /// Whether it is one, in a version that is known here.
    [[nodiscard]] explicit operator bool() const noexcept { return vis_ != nullptr; }

    /// The first line of its name, of limited length.
    [[nodiscard]] std::string name() const;

    /// Begins, or goes on in another size. False: it does not want to.
    [[nodiscard]] bool show(const SharedPicture& picture, const char* settings);

    void render(const SharedPicture& picture, const sound::HeardSound& heard);
    void click(std::int32_t x, std::int32_t y);
    void end();

private:
    const tovik_vis* vis_ = nullptr;
    void* self_ = nullptr;
    std::chrono::steady_clock::time_point begun_;
};

} // namespace tovik::visual
