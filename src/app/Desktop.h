// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the desktop round the player: its file types, and who is told what plays. Interface
// thread.
#pragma once

#include "app/StartOptions.h"
#include "desktop/Messenger.h"
#include "desktop/Remote.h"
#include "host/Host.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "playlist/AddMedia.h"
#include "preferences/frmPreferences.h"

#include <span>
#include <string>

namespace tovik::app {

/// The parts are used as they are.
class Desktop {
public:
    /// All of it outlives the wing.
    struct Needs {
        const player::Core& core;
        player::Playback& playback;
        const commands::Commands& commands;
        playlist::AddMedia& media;
        const StartOptions& options;
    };

    Desktop(const Needs& needs, const host::Host& host);
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// What the preferences reach here. Of a start that leaves the desktop alone, nothing.
    void attach(preferences::PreferenceHooks& hooks);

    // Steps of the end ----------------------------------------------------------------------------

    /// Messengers are told the last of it.
    void finishMessengers();

    desktop::Messenger messenger;
    desktop::Remote remote;

private:
    /// Claims these types of files. Raises what goes wrong.
    void associate(std::span<const std::string> extensions);

    const host::Host host_;
    const StartOptions& options_;
};

} // namespace tovik::app
