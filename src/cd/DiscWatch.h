// SPDX-License-Identifier: GPL-3.0-or-later
// Tells what goes wrong with the track of a disc that plays: a disc that was taken out ends it,
// what cannot be read is said on the display. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "host/Dialogs.h"
#include "host/Timer.h"
#include "player/Core.h"
#include "player/Transport.h"

#include <memory>

namespace tovik::cd {

class DiscWatch final : private player::TrackEvents {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        player::Transport& transport;
        host::Dialogs& dialogs;
        const config::MultiLNG& language;
    };

    explicit DiscWatch(const Needs& needs);
    ~DiscWatch() override;
    DiscWatch(const DiscWatch&) = delete;
    DiscWatch& operator=(const DiscWatch&) = delete;

private:
    /// A track started, of a disc perhaps.
    void restartVisualisation() override;

    void look();
    void tellUnreadable();

    Needs needs_;
    sound::Handle told_ = sound::kNoHandle; ///< of what was told already that it is scratched
    std::unique_ptr<host::Timer> timer_;    ///< runs while a disc plays
};

} // namespace tovik::cd
