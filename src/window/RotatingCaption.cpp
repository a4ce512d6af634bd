// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/RotatingCaption.h"

#include "base/Text.h"

#include <utility>

namespace tovik::window {

std::string rotatedLeft(const std::string& text) {
    const std::size_t first = base::firstCharacters(text, 1).size();
    return text.substr(first) + text.substr(0, first);
}

void RotatingCaption::Timer5() {
    config::guard(errors_, config::player("timer5"), [this] {
        const bool rotates = state_.ShowInTaskbar == 1;
        std::string& caption =
            rotates && state_.MiniModeOn ? playing_.miniCaption : playing_.caption;
        const std::string before =
            std::exchange(caption, rotates ? rotatedLeft(caption) : std::string());
        if (caption != before) {
            view_.showCaptions(playing_);
        }
    });
}

} // namespace tovik::window
