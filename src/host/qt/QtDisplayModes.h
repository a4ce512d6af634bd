// SPDX-License-Identifier: GPL-3.0-or-later
// The modes of the screens as the desktop tells them: each screen has the one that it is in.
// Interface thread.
#pragma once

#include "host/DisplayModes.h"

namespace tovik::host {

class QtDisplayModes final : public DisplayModes {
public:
    [[nodiscard]] std::vector<DisplayMode> all() const override;
    [[nodiscard]] DisplayMode current() const override;
};

} // namespace tovik::host
