// SPDX-License-Identifier: GPL-3.0-or-later
// What a session hands to the next one: the row and the place where it ended, and the order of the
// shuffle. Interface thread.
#pragma once

#include "app/Lists.h"
#include "host/Paths.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "player/StoredSettings.h"

namespace tovik::app {

/// Of both only what `Comfort` asks for: `resumesSession` and `remembersPicks`.
class LastSession {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        player::Playback& playback;
        player::StoredSettings& stored;
        const Lists& lists;
        const host::Paths& paths;
    };

    explicit LastSession(const Needs& needs) : p_(needs) {}

    /// The saved list was read. What does not fit it is left.
    void restore();

    /// A step of the end, while the sound is there. Nothing is kept of a session whose list is not.
    /// Raises what writing the settings raises.
    void keep();

private:
    void keepPlace();
    void keepOrder();

    Needs p_;
};

} // namespace tovik::app
