// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Process.h"

#include <cstdlib>

namespace tovik::app {

void Process::end(int status) {
    ended_ = true;
    host_.closing.endProcess(status);
}

void Process::endWith(const std::string& text, const std::string& title) {
    host_.dialogs.showMessage({.text = text, .title = title, .icon = host::MessageIcon::Critical});
    end(EXIT_FAILURE);
}

bool Process::anotherInstance() {
    return checkInstance_ && !host_.lock.hold();
}

void Process::bind(commands::Commands& commands) {
    commands.bind(commands::CommandId::exit, [this] { host_.closing.request(); });
}

} // namespace tovik::app
