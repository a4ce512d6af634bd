// SPDX-License-Identifier: GPL-3.0-or-later
// The modes of the display as text. Interface thread.
#pragma once

#include "host/DisplayModes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tovik::vis {

class ScreenModule {
public:
    /// `modes` outlives the object.
    explicit ScreenModule(const host::DisplayModes& modes) : modes_(modes) {}

    /// One text a mode, such as "1920 x 1080, 32bit color, 60 Hz".
    [[nodiscard]] std::vector<std::string> ListDisplayModes() const;

    /// The place of the mode in force in that list, from 0; -1 when it is not in it.
    [[nodiscard]] int CurrentDisplayMode() const;

    /// Bits a pixel of the mode in force, from its text. Raises 13 where that counts colours
    /// ("256 colors"), and 9 when the mode is not in the list.
    [[nodiscard]] std::int16_t ColourDepth() const;

private:
    const host::DisplayModes& modes_;
};

} // namespace tovik::vis
