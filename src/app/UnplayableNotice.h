// SPDX-License-Identifier: GPL-3.0-or-later
// Tells for some seconds, in one line of the display, how many files could not be played. Interface
// thread.
#pragma once

#include "app/UnkeptNotice.h"
#include "config/MultiLNG.h"
#include "host/Timer.h"
#include "host/TimerFactory.h"
#include "player/PlayerState.h"
#include "player/Screen.h"
#include "player/TrackNews.h"

#include <cstdint>
#include <memory>

namespace tovik::app {

/// Files that fail while the line stands count on. Nothing is told without
/// `Comfort::tellsUnplayable`.
class UnplayableNotice final : private player::TrackEvents {
public:
    static constexpr int kShownMs = 5000;

    /// All of it outlives the object.
    struct Needs {
        const player::PlayerState& state;
        player::TrackNews& news;
        player::Screen& screen;
        const config::MultiLNG& language;
        UnkeptNotice& unkept; ///< has the line otherwise
        host::TimerFactory& timers;
    };

    explicit UnplayableNotice(const Needs& needs);
    ~UnplayableNotice() override;
    UnplayableNotice(const UnplayableNotice&) = delete;
    UnplayableNotice& operator=(const UnplayableNotice&) = delete;

private:
    void reportUnplayable() override;
    void show(const std::string& text);

    Needs p_;
    std::unique_ptr<host::Timer> shown_;
    std::int32_t files_ = 0;
};

} // namespace tovik::app
