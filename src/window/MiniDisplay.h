// SPDX-License-Identifier: GPL-3.0-or-later
// Maps what is known of the playing track onto the elements of the mini window. Interface thread.
#pragma once

#include "player/PlayerState.h"
#include "window/MiniElements.h"
#include "window/SkinnedWindow.h"
#include "window/TrackFields.h"

namespace tovik::window {

/// Does nothing while the mini window is not in use.
class MiniDisplay final : public player::NowPlayingView {
public:
    /// All of them outlive the object.
    MiniDisplay(const player::PlayerState& state, MiniElements& elements, TextFields& fields,
                SkinnedWindow& window);

    /// All that the record holds, and the modes.
    void showAll(const player::NowPlaying& playing);

    /// The title as far as it has moved.
    void drawTitle(std::u32string_view characters);

    void showFacts(const player::NowPlaying& playing) override { showFormat(playing); }

    void showFormat(const player::NowPlaying& playing) override;
    void showTitles(const player::NowPlaying& playing) override;
    void showCaptions(const player::NowPlaying& playing) override;
    void showTime(const player::NowPlaying& playing) override;

    /// Only while the window is shown.
    void showPosition(const player::NowPlaying& playing) override;
    void showVolume(const player::NowPlaying& playing) override;
    void showMode(player::Mode mode) override;

private:
    const player::PlayerState& state_;
    MiniElements& elements_;
    TextFields& fields_;
    SkinnedWindow& window_;
    TrackFields track_;
};

/// Gives the part of the position bar that was played its width, 0 to all of the bar, in skin
/// pixels.
void showPlayed(MiniElements& elements, double width);

} // namespace tovik::window
