// SPDX-License-Identifier: GPL-3.0-or-later
// What a session hands to the next one: the row and the place where it ended, and the order of the
// shuffle. Interface thread.
#pragma once

#include "app/Lists.h"
#include "host/Paths.h"
#include "host/Timer.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "player/StoredSettings.h"
#include "player/TrackNews.h"
#include "playlist/ListWriter.h"

#include <memory>
#include <string>

namespace tovik::app {

/// Of both only what `Comfort` asks for: `resumesSession` and `remembersPicks`. They are also kept
/// shortly after a track started, was paused, stopped or moved, so that a program that is killed
/// loses little.
class LastSession final : private player::TrackEvents {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        player::Playback& playback;
        player::StoredSettings& stored;
        const Lists& lists;
        const host::Paths& paths;
    };

    static constexpr int kSoonMs = 250;

    explicit LastSession(const Needs& needs);
    ~LastSession() override;
    LastSession(const LastSession&) = delete;
    LastSession& operator=(const LastSession&) = delete;

    /// The saved list was read. What does not fit it is left.
    void restore();

    /// A step of the end, while the sound is there. Nothing is kept of a session whose list is not.
    /// Raises what writing the settings raises.
    void keep();

private:
    void reportTrack(const player::TrackReport& /*report*/) override { keepSoon(); }

    void reportUnknownTrack(const std::string& /*path*/) override { keepSoon(); }

    void reportNothing(const std::string& /*format*/, const std::string& /*word*/) override {
        keepSoon();
    }

    void reportPause() override { keepSoon(); }

    void reportSeek() override { keepSoon(); }

    void keepSoon();
    void keepSoFar();

    /// Whether the place is another than the one that is kept.
    [[nodiscard]] bool notePlace();
    void keepPlace();
    void keepOrder();

    Needs p_;
    playlist::ListWriter writer_; ///< of the order, while the session goes on
    std::unique_ptr<host::Timer> soon_;
};

} // namespace tovik::app
