// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Search.h"

namespace tovik::app {

using commands::CommandId;
using window::WindowId;

Search::Search(const player::Core& core, player::Playback& playback, window::WindowOpener& windows)
    : jump2File(core, playback.transport, playback.crossfade), jump2Track(core, playback.rows),
      jump2time(core, playback.crossfade), windows_(windows) {}

void Search::bind(commands::Commands& commands) {
    commands.bind(CommandId::musicSearch, [this] { windows_.open(WindowId::musicSearch); });
    commands.bind(CommandId::jumpToTrack, [this] { windows_.open(WindowId::jumpToTrack); });
    commands.bind(CommandId::jumpToTime, [this] { windows_.open(WindowId::jumpToTime); });
}

void Search::searchFor(const std::string& text) {
    windows_.open(WindowId::musicSearch);
    jump2File.SearchString(text);
}

} // namespace tovik::app
