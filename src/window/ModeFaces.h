// SPDX-License-Identifier: GPL-3.0-or-later
// How the main window shows its four modes: a button with two faces and a pair of indicators each.
// Interface thread.
#pragma once

#include "player/Mode.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "window/MainElements.h"

namespace tovik::window {

/// As the state has the mode: the button takes the face from the skin's store of pressed or of
/// plain faces, and of the indicators the one that applies is visible, as far as the current panel
/// shows indicators.
void showMode(MainElements& elements, const player::PlayerState& state, player::Mode mode);

/// The same whenever a mode is switched.
class ModeFaces final : public player::NowPlayingView {
public:
    /// Both outlive the object.
    ModeFaces(const player::PlayerState& state, MainElements& elements)
        : state_(state), elements_(elements) {}

    void showMode(player::Mode mode) override { window::showMode(elements_, state_, mode); }

private:
    const player::PlayerState& state_;
    MainElements& elements_;
};

/// The indicators of all modes, likewise.
void showLamps(MainElements& elements, const player::PlayerState& state);

} // namespace tovik::window
