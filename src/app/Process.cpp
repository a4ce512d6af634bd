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
    if (!checkInstance_ || first_) {
        return false;
    }
    first_ = host_.lock.hold();
    if (first_) {
        mailbox_.open();
    }
    return !first_;
}

bool Process::send(const host::InstanceMessage& message) {
    return host_.messages.send(message, [this] { return anotherInstance(); });
}

void Process::bind(commands::Commands& commands) {
    commands.bind(commands::CommandId::exit, [this] { host_.closing.request(); });
}

} // namespace tovik::app
