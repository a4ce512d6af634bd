// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what moves around in the list and in the track: search, jump to a row, jump to a
// time. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "player/Core.h"
#include "player/frmJump2File.h"
#include "player/frmjump2time.h"
#include "player/frmJump2Track.h"
#include "player/Playback.h"
#include "window/WindowOpener.h"

#include <string>

namespace tovik::app {

/// The parts are used as they are.
class Search {
public:
    /// All of them outlive the wing.
    Search(const player::Core& core, player::Playback& playback, window::WindowOpener& windows);
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    void bind(commands::Commands& commands);

    /// Opens the search with that text in it, as it was typed elsewhere.
    void searchFor(const std::string& text);

    player::frmJump2File jump2File;
    player::frmJump2Track jump2Track;
    player::frmjump2time jump2time;

private:
    window::WindowOpener& windows_;
};

} // namespace tovik::app
