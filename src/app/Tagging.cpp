// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Tagging.h"

namespace tovik::app {

Tagging::Tagging(const player::Core& core, const host::Host& host, tags::TagWarning& warning,
                 const config::MultiLNG& words, window::WindowOpener& windows)
    : list_(core.lists.stdSS), windows_(windows), work_(host.pump), editor({.core = core,
                                                                            .warning = warning,
                                                                            .dialogs = host.dialogs,
                                                                            .words = words,
                                                                            .work = work_}) {}

void Tagging::bind(commands::Commands& commands) {
    commands.bind(commands::CommandId::editTag, [this] {
        if (list_.SelectedIndex > 0) {
            windows_.open(window::WindowId::mp3Tag);
        }
    });
}

} // namespace tovik::app
