// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the tags: the editor of what files say of themselves. Interface thread.
#pragma once

#include "app/PumpedWork.h"
#include "commands/Commands.h"
#include "host/Host.h"
#include "player/frmMp3Tag.h"
#include "window/WindowOpener.h"

namespace tovik::app {

/// The parts are used as they are.
class Tagging {
public:
    /// All of them outlive the wing.
    Tagging(const player::Core& core, const host::Host& host, tags::TagWarning& warning,
            const config::MultiLNG& words, window::WindowOpener& windows);
    Tagging(const Tagging&) = delete;
    Tagging& operator=(const Tagging&) = delete;

    void bind(commands::Commands& commands);

    /// How work on files of music is run.
    [[nodiscard]] tags::TagWork& work() { return work_; }

private:
    const playlist::stdSS& list_;
    window::WindowOpener& windows_;
    PumpedWork work_;

public:
    player::frmMp3Tag editor;
};

} // namespace tovik::app
