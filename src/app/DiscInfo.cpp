// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DiscInfo.h"

namespace tovik::app {

DiscInfo::DiscInfo(const player::Core& core, const playlist::stdSS& lstTracks,
                   const host::Host& host, window::WindowOpener& windows)
    : freedb({.drives = core.sound, .pump = host.pump}), dialog({.core = core,
                                                                 .form = form,
                                                                 .lstTracks = lstTracks,
                                                                 .FREEDB = freedb,
                                                                 .paths = host.paths,
                                                                 .pump = host.pump}) {
    using window::WindowId;
    dialog.hooks.open = [&windows] { windows.open(WindowId::discInfo); };
    match.open = [&windows] { windows.open(WindowId::discMatch); };
    freedb.choose = [this](const std::vector<discs::Match>& matches) { return match.ask(matches); };
}

} // namespace tovik::app
