// SPDX-License-Identifier: GPL-3.0-or-later
// The volume as the user sees and sets it: the bar, its fill, its words. Interface thread.
#pragma once

#include "config/Errors.h"
#include "player/NowPlaying.h"
#include "player/Volume.h"
#include "ui/MainElements.h"
#include "ui/WheelNotches.h"

#include <cstdint>

namespace tovik::player {

class VolumeBar {
public:
    /// All of them outlive the bar.
    VolumeBar(PlayerState& state, Volume& volume, const config::Errors& errors,
              ui::MainElements& elements, NowPlaying& playing, NowPlayingView& view)
        : state_(state), volume_(volume), errors_(errors), elements_(elements), playing_(playing),
          view_(view) {}

    /// The share of the bar, in percent, by which a notch of the wheel moves.
    static constexpr std::int16_t kWheelPercent = 5;

    /// A press on the bar or on its fill, `y` skin pixels below the bar's top edge: the volume is
    /// what lies above; the bar's last pixel is all of it.
    void volbar_MouseDown(double y);

    /// The same for the pointer that moves with its left button held.
    void volbar_MouseMove(double y);

    /// Sets the volume, held to 0 to 100. `absolute` -1 says that it goes up, anything else that
    /// it goes down; the fill ends at the volume either way. Raises what reading the settings
    /// raises.
    void change_volume(std::int16_t value, std::int16_t absolute);

    /// A turn of the wheel: five percent a whole notch, up when positive.
    void turn(double notches);

    /// Gives the fill the height of the volume.
    void showHeight();

    /// Words for the volume, from the caption of `Label3`.
    void showText();

private:
    void setTo(double y);

    PlayerState& state_;
    Volume& volume_;
    const config::Errors& errors_;
    ui::MainElements& elements_;
    NowPlaying& playing_;
    NowPlayingView& view_;
    ui::WheelNotches wheel_;
};

} // namespace tovik::player
