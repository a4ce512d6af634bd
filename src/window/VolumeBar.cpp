// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/VolumeBar.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "ui/Twips.h"

#include <algorithm>
#include <string>

namespace tovik::window {

namespace {

constexpr double kAll = 100;

} // namespace

void VolumeBar::volbar_MouseDown(double y) {
    config::guard(core_.errors, config::player("volbar_mousedown"), [&] { setTo(y); });
}

void VolumeBar::volbar_MouseMove(double y) {
    setTo(y);
}

void VolumeBar::setTo(double y) {
    volume_.readMode();
    const double height = elements_.get(MainElement::volbar).height;
    elements_.touch(MainElement::volbarIMG).height = std::clamp(y + ui::kPointerWidth, 0.0, height);
    core_.state.CurrentVolume =
        base::toInt16(std::clamp(base::divide(y * kAll, height - 1), 0.0, kAll));
    volume_.changed();
    volume_.apply();
    showText();
}

void VolumeBar::turn(double notches) {
    const double whole = wheel_.whole(notches);
    if (whole != 0) {
        change(base::toInt16(
            std::clamp(core_.state.CurrentVolume + whole * kWheelPercent, 0.0, kAll)));
    }
}

void VolumeBar::change(std::int32_t percent) {
    volume_.change_volume(static_cast<std::int16_t>(std::clamp(percent, 0, 100)),
                          percent > core_.state.CurrentVolume ? -1 : 1);
}

void VolumeBar::showVolumeLevel() {
    showHeight();
    showText();
}

void VolumeBar::showHeight() {
    elements_.touch(MainElement::volbarIMG).height =
        elements_.get(MainElement::volbar).height / kAll * core_.state.CurrentVolume;
}

void VolumeBar::showText() {
    core_.screen.playing.volumeText =
        base::replaceAll(elements_.get(MainElement::Label3).caption, "[x]",
                         std::to_string(core_.state.CurrentVolume));
    core_.screen.showVolume();
}

} // namespace tovik::window
