// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of Internet radio: the list of stations and its file, the dialog that adds one, and what
// plays and saves them. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "config/MultiLNG.h"
#include "host/Host.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "playlist/ListEvents.h"
#include "playlist/ListWriter.h"
#include "radio/frmaddst.h"
#include "radio/StationList.h"
#include "radio/StationPlayer.h"
#include "window/WindowOpener.h"

#include <cstdint>
#include <span>

namespace tovik::app {

/// The parts are used as they are.
class Stations final : private playlist::ListEvents, private playlist::ListObserver {
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

    /// Asks for an address that becomes a row of this playlist, which outlives the wing.
    void askForAddress(playlist::stdSS& playlist);

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

    // What is kept is another.
    void rowsInserted(playlist::Row first, playlist::Row count) override;
    void rowsRemoved(std::span<const playlist::Row> rows) override;
    void rowMoved(playlist::Row from, playlist::Row to) override;
    void rowsCleared() override;
    void rowChanged(playlist::Row row) override;
    void keepAtOnce();

    [[nodiscard]] std::int16_t count() const;

    [[nodiscard]] bool has() const { return RadioLst_.ListCount() > 0; }

    void tellInfo();

    const player::Core& core_;
    playlist::stdSS& RadioLst_;
    window::WindowOpener& windows_;
    host::Dialogs& dialogs_;
    const host::Paths& paths_;
    radio::StationList list_;
    playlist::ListWriter writer_;
    bool lost_ = false; ///< the file could not be read
    bool read_ = false; ///< the file was read, and nothing else changes the list since
};

} // namespace tovik::app
