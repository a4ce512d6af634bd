// SPDX-License-Identifier: GPL-3.0-or-later
// The volume on the mini window: a vertical slider whose least value is at its top. Interface
// thread.
#pragma once

#include "player/Core.h"
#include "player/Volume.h"
#include "ui/PicVScroll.h"
#include "window/MiniElements.h"

#include <cstdint>

namespace tovik::window {

/// What a slider from 0 at its top to 100 says of a volume, and the reverse.
[[nodiscard]] constexpr std::int32_t mirrored(std::int32_t value) noexcept {
    constexpr std::int32_t kMiddle = 50;
    return value > kMiddle ? kMiddle - (value - kMiddle) : (kMiddle - value) + kMiddle;
}

class MiniVolume final : public player::NowPlayingView {
public:
    /// All of them outlive the object.
    MiniVolume(const player::Core& core, player::Volume& volume, MiniElements& elements,
               host::Dialogs& dialogs);

    /// Takes the pictures of the thumb and of the bar below it, and the volume.
    void setUp();

    /// Sets the volume of the stream, or of the whole output where the settings say so, and tells
    /// it to all who show it. Raises what reading the settings raises.
    void SetMiniVolume(std::int16_t value);

    void showVolumeLevel() override;

    ui::PicVScroll volbar;

private:
    const player::Core& core_;
    player::Volume& volume_;
    MiniElements& elements_;
};

} // namespace tovik::window
