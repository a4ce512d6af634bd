// SPDX-License-Identifier: GPL-3.0-or-later
// Tells messengers what plays. Interface thread.
#pragma once

#include "desktop/MessengerText.h"
#include "host/MessengerWindows.h"
#include "player/Core.h"
#include "player/TrackEvents.h"

#include <string>

namespace tovik::desktop {

/// A listener of the player's news.
class Messenger final : public player::TrackEvents {
public:
    /// Both outlive the object.
    Messenger(const player::Core& core, host::MessengerWindows& windows)
        : core_(core), windows_(windows) {}

    /// To every messenger that runs, also what they know.
    void SendMessengerStatus(const MessengerStatus& status);

    /// Tells what the window shows of the sounding track, or, while messengers are not told, that
    /// nothing plays.
    void UpdateMessengerStatus();

    void reportTrack(const player::TrackReport& /*report*/) override { UpdateMessengerStatus(); }

    /// Who plays what is known only now. What was told last is not told again.
    void reportFacts(const player::TrackReport& report) override;

    void reportNothing(const std::string& format, const std::string& word) override;

private:
    [[nodiscard]] MessengerStatus statusOfTrack() const;

    const player::Core& core_;
    host::MessengerWindows& windows_;
    host::MessengerRecord told_{}; ///< last
};

} // namespace tovik::desktop
