// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/VolumeBar.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "ui/Twips.h"

#include <algorithm>
#include <string>

namespace tovik::player {

namespace {

using ui::MainElement;

constexpr double kAll = 100;

} // namespace

void VolumeBar::volbar_MouseDown(double y) {
    config::guard(errors_, config::player("volbar_mousedown"), [&] { setTo(y); });
}

void VolumeBar::volbar_MouseMove(double y) {
    setTo(y);
}

void VolumeBar::setTo(double y) {
    volume_.readMode();
    const double height = elements_.get(MainElement::volbar).height;
    elements_.touch(MainElement::volbarIMG).height = std::clamp(y + ui::kPointerWidth, 0.0, height);
    state_.CurrentVolume = base::toInt16(std::clamp(base::divide(y * kAll, height - 1), 0.0, kAll));
    volume_.changed();
    volume_.apply();
    showText();
}

void VolumeBar::change_volume(std::int16_t value, std::int16_t /*absolute*/) {
    volume_.readMode();
    state_.CurrentVolume = std::clamp<std::int16_t>(value, 0, 100);
    volume_.changed();
    showHeight();
    showText();
    volume_.apply();
}

void VolumeBar::turn(double notches) {
    const double whole = wheel_.whole(notches);
    if (whole == 0) {
        return;
    }
    const double value = std::clamp(state_.CurrentVolume + whole * kWheelPercent, 0.0, kAll);
    change_volume(base::toInt16(value), whole > 0 ? -1 : 1);
}

void VolumeBar::showHeight() {
    elements_.touch(MainElement::volbarIMG).height =
        elements_.get(MainElement::volbar).height / kAll * state_.CurrentVolume;
}

void VolumeBar::showText() {
    playing_.volumeText = base::replaceAll(elements_.get(MainElement::Label3).caption, "[x]",
                                           std::to_string(state_.CurrentVolume));
    view_.showVolume(playing_);
}

} // namespace tovik::player
