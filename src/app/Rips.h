// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of ripping: the commands that turn a disc into files, and what the window shows of a job
// that runs. Interface thread.
#pragma once

#include "cd/Ripping.h"
#include "commands/Commands.h"
#include "tags/TagWork.h"
#include "window/MainElements.h"

namespace tovik::app {

class Rips {
public:
    struct Needs {
        const player::Core& core;
        cd::CdState& disc;
        cd::DiscForm& form;
        playlist::stdSS& lstTracks;
        const player::PlayerHandle& window;
        const config::MultiLNG& language;
        tags::TagWarning& warning;
        tags::TagWork& work;
        window::MainElements& elements;
    };

    /// All of them outlive the wing; the host's services do, too.
    Rips(const Needs& needs, const host::Host& host);
    Rips(const Rips&) = delete;
    Rips& operator=(const Rips&) = delete;

    void bind(commands::Commands& commands);

private:
    void showPanel();
    void show(const cd::RipStatus& status);

    player::PlayerState& state_;
    window::MainElements& elements_;
    const config::MultiLNG& language_;
    const host::Host host_;
    cd::RipWords words_;
    cd::RipProgress progress_;

public:
    /// Its hooks are for who composes the player, but for the one that shows the panel.
    cd::Ripping ripping;
};

} // namespace tovik::app
