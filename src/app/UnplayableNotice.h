// SPDX-License-Identifier: GPL-3.0-or-later
// Tells for some seconds, in one line of the display, how many files could not be played. Interface
// thread.
#pragma once

#include "app/PassingLine.h"
#include "config/MultiLNG.h"
#include "player/PlayerState.h"
#include "player/TrackNews.h"

#include <cstdint>
#include <string>

namespace tovik::app {

/// Files that fail while the line stands count on. Nothing is told without
/// `Comfort::tellsUnplayable`.
class UnplayableNotice final : private player::TrackEvents {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::PlayerState& state;
        player::TrackNews& news;
        const config::MultiLNG& language;
        PassingLine& line;
    };

    explicit UnplayableNotice(const Needs& needs);
    ~UnplayableNotice() override;
    UnplayableNotice(const UnplayableNotice&) = delete;
    UnplayableNotice& operator=(const UnplayableNotice&) = delete;

private:
    void reportUnplayable() override;

    Needs p_;
    std::string told_;
    std::int32_t files_ = 0;
};

} // namespace tovik::app
