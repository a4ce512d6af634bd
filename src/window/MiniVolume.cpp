// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniVolume.h"

namespace tovik::window {

namespace {

constexpr std::int32_t kLoudest = 100;
constexpr std::int32_t kMiddle = 50;
constexpr std::int16_t kUp = -1;
constexpr std::int16_t kDown = 1;

} // namespace

MiniVolume::MiniVolume(const player::Core& core, player::Volume& volume, MiniElements& elements,
                       host::Dialogs& dialogs)
    : volbar(elements, ui::addressOf(MiniElement::volbar), dialogs,
             {.Min = 0, .Max = kLoudest, .Value = kMiddle}),
      core_(core), volume_(volume), elements_(elements) {
    volbar.Change = [this] { SetMiniVolume(static_cast<std::int16_t>(mirrored(volbar.Value()))); };
}

void MiniVolume::setUp() {
    volbar.Picture(elements_.get(MiniElement::Picture3).picture);
    volbar.Bar(elements_.get(MiniElement::Picture2).picture,
               elements_.get(MiniElement::volbar).bar.height);
    showVolumeLevel();
}

void MiniVolume::SetMiniVolume(std::int16_t value) {
    volume_.change_volume(value, value > core_.state.CurrentVolume ? kUp : kDown);
}

void MiniVolume::showVolumeLevel() {
    // While the hand drags it, the thumb is where the hand is.
    if (!volbar.Dragging()) {
        volbar.ShowValue(mirrored(core_.state.CurrentVolume));
    }
}

} // namespace tovik::window
