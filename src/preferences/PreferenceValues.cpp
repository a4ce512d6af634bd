// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/PreferenceValues.h"

#include "player/FadeTime.h"

#include <algorithm>
#include <cmath>

namespace tovik::preferences {

void PreferenceValues::put(Control control, std::int32_t number) {
    const ControlRow& row = rowOf(control);
    const std::int32_t held = std::clamp(number, row.least, row.most);
    numbers_.at(at(control)) = held - (held - row.least) % row.step;
    known_.set(at(control));
}

void PreferenceValues::setNumber(Control control, std::int32_t number) {
    if (const auto place = comfortNumber(control)) {
        if (*place == 0) {
            comfort_.master = number == 1;
        } else {
            comfort_.turn(*place, number == 1);
        }
        setComfort(comfort_);
        return;
    }
    put(control, number);
    switch (control) {
    case Control::Slider1_0:
        if (!known(Control::Slider1_2)) {
            // Shown, but not chosen.
            numbers_.at(at(Control::Slider1_2)) =
                static_cast<std::int32_t>(std::lround(player::shorterFade(this->number(control))));
        }
        break;
    case Control::Check2:
        put(Control::Check15, ticked(control) ? 0 : 1);
        break;
    case Control::Check15:
        put(Control::Check2, ticked(control) ? 0 : 1);
        break;
    case Control::Combo1:
        texts_.at(at(control)) = kFormats.at(static_cast<std::size_t>(this->number(control)));
        showRate();
        break;
    case Control::Slider2:
        if (choosesRate()) {
            rates_.at(static_cast<std::size_t>(this->number(Control::Combo1))) =
                this->number(control);
        }
        break;
    default:
        break;
    }
}

void PreferenceValues::setText(Control control, std::string_view text) {
    texts_.at(at(control)) = text;
    known_.set(at(control));
    if (control == Control::Combo1) {
        const auto* const found = std::ranges::find(kFormats, text);
        numbers_.at(at(control)) =
            found == kFormats.end() ? -1 : static_cast<std::int32_t>(found - kFormats.begin());
        showRate();
    }
}

void PreferenceValues::setTypes(const Ticks& types) {
    types_ = types;
    known_.set(at(Control::List1));
}

void PreferenceValues::setRates(const Rates& rates) {
    rates_ = rates;
    rates_.front() = kWaveRate;
    showRate();
}

void PreferenceValues::setComfort(const base::ComfortChoices& choices) {
    comfort_ = choices;
    put(Control::Comfort_0, choices.master ? 1 : 0);
    for (std::size_t place = 1; place <= base::kComfortSwitches.size(); ++place) {
        put(comfortControl(place), choices.on(place) ? 1 : 0);
    }
}

void PreferenceValues::showRate() {
    if (choosesRate()) {
        put(Control::Slider2, rates_.at(static_cast<std::size_t>(number(Control::Combo1))));
    }
}

std::string PreferenceValues::rateText() const {
    const bool wave = number(Control::Combo1) == 0;
    return std::to_string(wave ? kWaveRate : number(Control::Slider2)) + " kbps";
}

} // namespace tovik::preferences
