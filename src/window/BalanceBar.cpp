// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/BalanceBar.h"

#include "base/Text.h"

#include <algorithm>
#include <cstdlib>

namespace tovik::window {

namespace {

using player::kBalanceSteps;

constexpr std::size_t kCentre = 4;

/// A deliberate oddity: the words of the start tell the percentage of this step, whichever step
/// the balance is on; the first click on a lamp puts them right.
constexpr std::size_t kStartPercentStep = 0;

/// The step of a balance; that of a value between them is the first.
std::size_t stepOf(std::int16_t value) {
    const auto* const found = std::ranges::find(kBalanceSteps, value);
    return found == kBalanceSteps.end() ? 0
                                        : static_cast<std::size_t>(found - kBalanceSteps.begin());
}

/// From the centre, which is always lit, to the step.
bool isLit(std::size_t lamp, std::size_t step) {
    return lamp == kCentre || (lamp < kCentre && lamp >= step) || (lamp > kCentre && lamp <= step);
}

} // namespace

void BalanceBar::click(std::size_t lamp) {
    if (balance_.Balbar_Click(static_cast<std::int16_t>(lamp))) {
        percentStep_ = lamp;
        showText();
    }
}

void BalanceBar::showBalanceLevel(std::int16_t pan) {
    const std::size_t step = stepOf(pan);
    const ui::Picture on = elements_.get(MainElement::baron).picture;
    const ui::Picture off = elements_.get(MainElement::baroff).picture;
    const ui::Picture centre = elements_.get(MainElement::balcnt).picture;
    for (std::size_t lamp = 0; lamp < kBalanceSteps.size(); ++lamp) {
        const bool lit = isLit(lamp, step);
        ui::Element& element = elements_.touch(MainElement::balbar, lamp);
        element.checked = lit;
        element.picture = lamp == kCentre ? centre : lit ? on : off;
    }
}

void BalanceBar::showStartText() {
    percentStep_ = kStartPercentStep;
    showText();
}

void BalanceBar::showText() {
    const std::size_t step = stepOf(core_.state.BalanceValue);
    core_.screen.playing.balanceText =
        text(step, core_.state.comfort.tellsBalanceOfStart ? step : percentStep_);
    core_.screen.showBalance();
}

void BalanceBar::hover(std::size_t lamp) {
    core_.screen.playing.hoverText = text(lamp, lamp);
    core_.screen.playing.balanceHover = true;
    core_.screen.showBalance();
}

void BalanceBar::endHover() {
    if (core_.screen.playing.balanceHover) {
        core_.screen.playing.balanceHover = false;
        core_.screen.showBalance();
    }
}

std::string BalanceBar::text(std::size_t step, std::size_t percentStep) const {
    if (step == kCentre) {
        return elements_.get(MainElement::Label4, 2).caption;
    }
    return base::replaceAll(elements_.get(MainElement::Label4, step < kCentre ? 0 : 1).caption,
                            "[x]", std::to_string(std::abs(kBalanceSteps.at(percentStep))));
}

} // namespace tovik::window
