// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PositionBar.h"

#include "base/Numbers.h"
#include "base/TimeText.h"
#include "ui/Twips.h"

#include <algorithm>

namespace tovik::player {

namespace {

using ui::MainElement;

constexpr double kAll = 100;

} // namespace

void PositionBar::Posbar_MouseDown(double x) {
    config::guard(p_.errors, config::player("posbar_mousedown"), [&] {
        if (sounds()) {
            dragging_ = true;
            p_.Timer3.setEnabled(false);
            moveMark(x);
        }
        p_.state.SilenceTicks = 0;
    });
}

void PositionBar::Posbar_MouseMove(double x) {
    if (!sounds()) {
        return;
    }
    dragging_ = true;
    p_.Timer3.setEnabled(false);
    p_.Timer1.setEnabled(false);
    moveMark(x);
    showPreview(percentAt(x));
    p_.state.SilenceTicks = 0;
}

void PositionBar::Posbar_MouseUp(double x) {
    if (sounds()) {
        moveMark(x);
        const sound::Handle channel = p_.state.active();
        const double seconds = p_.time.GetDuration(channel) / kAll * percentAt(x);
        p_.time.SetPlayingPos(channel, base::toInt32(seconds), false);
    } else if (!dragging_) {
        return;
    }
    dragging_ = false;
    p_.Timer3.setEnabled(true);
    p_.Timer1.setEnabled(true);
    p_.window.takeFocus();
    p_.state.SilenceTicks = 0;
}

void PositionBar::goTo(std::int32_t second) {
    if (sounds()) {
        p_.time.SetPlayingPos(p_.state.active(), std::clamp(second, 0, length()), false);
        p_.state.SilenceTicks = 0;
    }
}

std::int32_t PositionBar::second() const {
    return sounds() ? p_.time.GetPlayingPos(p_.state.active()) : 0;
}

std::int32_t PositionBar::length() const {
    return p_.state.IsPlaying ? p_.time.GetDuration(p_.state.active()) : 0;
}

void PositionBar::moveMark(double x) {
    const ui::Element& bar = p_.elements.get(MainElement::posbar);
    const double left = bar.left + std::clamp(x, 0.0, bar.width - 1) + ui::kPointerWidth;
    p_.elements.touch(MainElement::track).left = left;
}

double PositionBar::percentAt(double x) const {
    const double width = p_.elements.get(MainElement::posbar).width;
    return std::clamp(base::divide(x * kAll, width - 1), 0.0, kAll);
}

void PositionBar::showPreview(double percent) {
    const std::int32_t duration = p_.time.GetDuration(p_.state.active());
    const std::int32_t preview = base::toInt32(duration * percent / kAll);
    p_.playing.time = base::lastFive(p_.state.TimeDisplayMode == 0 ? preview : duration - preview);
    p_.playing.countsDown = p_.state.TimeDisplayMode != 0;
    p_.view.showTime(p_.playing);
}

} // namespace tovik::player
