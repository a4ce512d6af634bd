// SPDX-License-Identifier: GPL-3.0-or-later
// The caption of the window runs round on the task bar. Interface thread.
#pragma once

#include "config/Errors.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"

#include <string>

namespace tovik::window {

class RotatingCaption {
public:
    /// All of them outlive the object.
    RotatingCaption(player::PlayerState& state, config::Errors& errors, player::NowPlaying& playing,
                    player::NowPlayingView& view)
        : state_(state), errors_(errors), playing_(playing), view_(view) {}

    static constexpr int kTimer5Ms = 180;

    /// Moves the first character of the caption behind the last: of the mini window's in mini mode,
    /// else of the main window's. A window without a button on the task bar has no caption. The
    /// window is told only of a change.
    void Timer5();

private:
    player::PlayerState& state_;
    config::Errors& errors_;
    player::NowPlaying& playing_;
    player::NowPlayingView& view_;
};

/// The text with its first character behind the last one; a text of one character or none stays.
/// Never in the middle of a character of UTF-8.
[[nodiscard]] std::string rotatedLeft(const std::string& text);

} // namespace tovik::window
