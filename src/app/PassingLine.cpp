// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PassingLine.h"

namespace tovik::app {

PassingLine::PassingLine(player::Screen& screen, UnkeptNotice& unkept, host::TimerFactory& timers)
    : screen_(screen), unkept_(unkept), shown_(timers.makeTimer([this] {
          shown_->setEnabled(false);
          put("");
          unkept_.show();
      })) {
    shown_->setInterval(kShownMs);
}

void PassingLine::show(const std::string& text) {
    put(text);
    shown_->setEnabled(true); // from now on once more
}

bool PassingLine::shows(const std::string& text) const {
    return shown_->enabled() && screen_.playing.notice == text;
}

void PassingLine::put(const std::string& text) {
    screen_.playing.notice = text;
    screen_.showNotice();
}

} // namespace tovik::app
