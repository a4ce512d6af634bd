// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of audio CDs: the drives, the tracks of their discs, and the playing of them. Interface
// thread.
#pragma once

#include "app/DiscInfo.h"
#include "cd/CdDrives.h"
#include "cd/DiscWatch.h"
#include "commands/Commands.h"
#include "config/MultiLNG.h"
#include "host/Host.h"
#include "player/ListButtons.h"
#include "player/Playback.h"
#include "window/frmTSR.h"
#include "window/Panels.h"

#include <memory>

namespace tovik::app {

/// The parts are used as they are.
class Discs {
public:
    struct Needs {
        const player::Core& core;
        player::Playback& playback;
        playlist::stdSS& lstTracks;
        DiscInfo& info;
        player::ListButtons& buttons;
        window::frmTSR& menus;
        window::Panels& panels;
        const config::MultiLNG& language;
    };

    /// All of them outlive the wing.
    Discs(const Needs& needs, const host::Host& host);
    ~Discs();
    Discs(const Discs&) = delete;
    Discs& operator=(const Discs&) = delete;

    void bind(commands::Commands& commands);

    // Steps of the start and the end --------------------------------------------------------------

    /// Which drives there are is looked for a moment later, when the window is there.
    void lookForDrives();

    cd::CdState state;
    cd::CdDrives drives;

private:
    void panelSwitched();

    const player::Core& core_;
    window::Panels& panels_;
    cd::DiscWatch watch_;
    std::unique_ptr<host::Timer> firstLook_; ///< once, after the start
    bool ripPanel_ = false;
};

} // namespace tovik::app
