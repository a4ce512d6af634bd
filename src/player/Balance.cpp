// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Balance.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tovik::player {

namespace {

using ui::MainElement;

constexpr int kKeep = -1;

struct Step {
    std::int16_t pan;
    std::string_view percent;
};

constexpr std::array<Step, 9> kSteps = {{
    {-100, "100"},
    {-75, "75"},
    {-50, "50"},
    {-25, "25"},
    {0, "0"},
    {25, "25"},
    {50, "50"},
    {75, "75"},
    {100, "100"},
}};

constexpr std::size_t kCentre = 4;

/// A deliberate oddity: the words of the start tell the percentage of this step, whichever step
/// the balance is on; the first click on a lamp puts them right.
constexpr std::size_t kStartPercentStep = 0;

/// The step of a balance; that of a value between them is the first.
std::size_t stepOf(std::int16_t value) {
    const auto* const found = std::ranges::find(kSteps, value, &Step::pan);
    return found == kSteps.end() ? 0 : static_cast<std::size_t>(found - kSteps.begin());
}

/// From the centre, which is always lit, to the step.
bool isLit(std::size_t lamp, std::size_t step) {
    return lamp == kCentre || (lamp < kCentre && lamp >= step) || (lamp > kCentre && lamp <= step);
}

} // namespace

void Balance::ApplyBalance(std::int16_t pan) {
    showLamps(stepOf(pan));
    if (state_.ActiveChannel != ChannelSlot::none) {
        sound_.BASS_ChannelSetAttributes(state_.active(), kKeep, kKeep, pan);
    }
}

void Balance::Balbar_Click(std::int16_t index) {
    config::guard(errors_, config::player("balbar"), [&] {
        const auto step = static_cast<std::size_t>(index);
        if (step >= kSteps.size()) {
            throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
        }
        state_.BalanceValue = kSteps.at(step).pan;
        showLamps(step);
        playing_.balanceText = text(step, step);
        view_.showBalance(playing_);
        for (const sound::Handle channel : {state_.SecondaryChannel, state_.PrimaryChannel}) {
            sound_.BASS_ChannelSetAttributes(channel, kKeep, kKeep, state_.BalanceValue);
        }
    });
}

void Balance::showStartText() {
    playing_.balanceText = text(stepOf(state_.BalanceValue), kStartPercentStep);
    view_.showBalance(playing_);
}

void Balance::hover(std::size_t index) {
    playing_.hoverText = text(index, index);
    playing_.balanceHover = true;
    view_.showBalance(playing_);
}

void Balance::endHover() {
    if (playing_.balanceHover) {
        playing_.balanceHover = false;
        view_.showBalance(playing_);
    }
}

std::string Balance::text(std::size_t step, std::size_t percentStep) const {
    if (step == kCentre) {
        return elements_.get(MainElement::Label4, 2).caption;
    }
    return base::replaceAll(elements_.get(MainElement::Label4, step < kCentre ? 0 : 1).caption,
                            "[x]", kSteps.at(percentStep).percent);
}

void Balance::showLamps(std::size_t step) {
    const ui::Picture on = elements_.get(MainElement::baron).picture;
    const ui::Picture off = elements_.get(MainElement::baroff).picture;
    const ui::Picture centre = elements_.get(MainElement::balcnt).picture;
    for (std::size_t lamp = 0; lamp < kSteps.size(); ++lamp) {
        const bool lit = isLit(lamp, step);
        ui::Element& element = elements_.touch(MainElement::balbar, lamp);
        element.checked = lit;
        element.picture = lamp == kCentre ? centre : lit ? on : off;
    }
}

} // namespace tovik::player
