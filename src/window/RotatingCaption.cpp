// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/RotatingCaption.h"

#include "base/Text.h"

#include <utility>

namespace tovik::window {

std::string rotatedLeft(const std::string& text) {
    const std::size_t first = base::firstCharacters(text, 1).size();
    return text.substr(first) + text.substr(0, first);
}

RotatingCaption::RotatingCaption(const player::Core& core)
    : core_(core), Timer5_(core.timers.makeTimer([this] { Timer5(); })) {
    Timer5_->setInterval(kTimer5Ms);
    Timer5_->setEnabled(true);
    core_.screen.add(*this);
}

RotatingCaption::~RotatingCaption() {
    core_.screen.remove(*this);
}

void RotatingCaption::stir() {
    if (!Timer5_->enabled()) {
        Timer5_->setEnabled(true);
    }
}

void RotatingCaption::Timer5() {
    config::guard(core_.errors, config::player("timer5"), [this] {
        const bool rotates = core_.state.ShowInTaskbar == 1;
        if (rotates && held_) {
            Timer5_->setEnabled(false);
            return;
        }
        std::string& caption = rotates && core_.state.MiniModeOn ? core_.screen.playing.miniCaption
                                                                 : core_.screen.playing.caption;
        const std::string before =
            std::exchange(caption, rotates ? rotatedLeft(caption) : std::string());
        if (caption != before) {
            core_.screen.showCaptions();
        } else if (!rotates) {
            Timer5_->setEnabled(false);
        }
    });
}

} // namespace tovik::window
