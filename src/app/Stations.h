// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of Internet radio: the list of stations and its file, the dialog that adds one, and what
// plays and saves them. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "config/MultiLNG.h"
#include "host/Host.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "radio/frmaddst.h"
#include "radio/StationList.h"
#include "radio/StationPlayer.h"
#include "window/WindowOpener.h"

namespace tovik::app {

/// The parts are used as they are.
class Stations final : private playlist::ListEvents {
public:
    struct Needs {
        const player::Core& core;
        player::Playback& playback;
        playlist::stdSS& RadioLst;
        const config::MultiLNG& language;
        window::WindowOpener& windows;
    };

    /// All of them outlive the wing.
    Stations(const Needs& needs, const host::Host& host);
    ~Stations() override;
    Stations(const Stations&) = delete;
    Stations& operator=(const Stations&) = delete;

    void bind(commands::Commands& commands);

    // Steps of the start and the end --------------------------------------------------------------

    void readStations();

    /// Nothing is written over a file that could not be read.
    void saveStations();

    radio::StationPlayer player;
    radio::frmaddst addStation;

private:
    /// A station was started from the list, for the first time or again.
    void Play(const std::string& itemData) override;
    void PlayedAgain() override;

    [[nodiscard]] bool has() const { return RadioLst_.ListCount() > 0; }

    void tellInfo();

    const player::Core& core_;
    playlist::stdSS& RadioLst_;
    window::WindowOpener& windows_;
    host::Dialogs& dialogs_;
    const host::Paths& paths_;
    radio::StationList list_;
    bool lost_ = false; ///< the file could not be read
};

} // namespace tovik::app
