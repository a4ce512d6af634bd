// SPDX-License-Identifier: GPL-3.0-or-later
// The volume as the user sees and sets it: the bar, its fill, its words. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/Volume.h"
#include "ui/WheelNotches.h"
#include "window/MainElements.h"

#include <cstdint>

namespace tovik::window {

class VolumeBar final : public player::NowPlayingView {
public:
    /// All of them outlive the bar.
    VolumeBar(const player::Core& core, player::Volume& volume, MainElements& elements)
        : core_(core), volume_(volume), elements_(elements) {}

    /// The share of the bar, in percent, by which a notch of the wheel moves.
    static constexpr std::int16_t kWheelPercent = 5;

    /// A press on the bar or on its fill, `y` skin pixels below the bar's top edge: the volume is
    /// what lies above; the bar's last pixel is all of it.
    void volbar_MouseDown(double y);

    /// The same for the pointer that moves with its left button held.
    void volbar_MouseMove(double y);

    /// A turn of the wheel: five percent a whole notch, up when positive.
    void turn(double notches);

    /// Goes to a volume, held to 0 to 100; the fill ends there. Raises what reading the settings
    /// raises.
    void change(std::int32_t percent);

    void showVolumeLevel() override;

    /// Gives the fill the height of the volume.
    void showHeight();

    /// Words for the volume, from the caption of `Label3`.
    void showText();

private:
    void setTo(double y);

    const player::Core& core_;
    player::Volume& volume_;
    MainElements& elements_;
    ui::WheelNotches wheel_;
};

} // namespace tovik::window
