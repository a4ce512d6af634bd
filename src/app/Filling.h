// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what fills and empties the playlist: files, folders, playlist files. Interface
// thread.
#pragma once

#include "app/PassingLine.h"
#include "commands/Commands.h"
#include "config/MultiLNG.h"
#include "host/Host.h"
#include "player/Core.h"
#include "player/frmOpenDirectory.h"
#include "player/ListButtons.h"
#include "player/ListFacts.h"
#include "playlist/AddMedia.h"
#include "playlist/ListDialogs.h"
#include "playlist/PlaylistFiles.h"
#include "window/MainElements.h"
#include "window/PlayerWindow.h"
#include "window/WindowOpener.h"

#include <functional>

namespace tovik::app {

/// The parts are used as they are.
class Filling {
public:
    struct Needs {
        const player::Core& core;
        playlist::PlaylistFiles& files;
        window::PlayerWindow& window;
        window::WindowOpener& windows;
        const window::MainElements& elements; ///< hold the titles of the dialogs
        const config::MultiLNG& language;
        PassingLine& line;
    };

    /// All of them outlive the wing.
    Filling(const Needs& needs, const host::Host& host);
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

    void bind(commands::Commands& commands);

    // Steps of the end ----------------------------------------------------------------------------

    void finishSaves();

    playlist::AddMedia media;
    playlist::ListDialogs files;
    player::frmOpenDirectory openDirectory;
    player::ListButtons buttons;
    player::ListFacts rowFacts;

    /// Asks for an address that becomes a row; none: nobody can.
    std::function<void()> askForLocation;

private:
    /// A command of the playlist's panel: the keyboard goes to `Text4` first. What it does to the
    /// list is one step.
    [[nodiscard]] std::function<void()> button(std::function<void()> act);

    const player::Core& core_;
    window::PlayerWindow& window_;
    window::WindowOpener& windows_;
};

} // namespace tovik::app
