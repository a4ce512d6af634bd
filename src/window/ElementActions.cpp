// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ElementActions.h"

#include "base/Numbers.h"
#include "player/EqualizerGains.h"
#include "window/Decibels.h"
#include "window/MainButtons.h"
#include "window/TimeDisplay.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tovik::window {

namespace {

using ui::Adjustment;
using ui::ElementRange;

constexpr double kVolumeMost = 100;
constexpr double kBalanceMost = 100;
constexpr double kBalanceStep = 25;
constexpr double kSecondsStep = 5;

/// How many steps a page is.
struct Page {
    MainElement name;
    double steps;
};

constexpr std::array kPages = {
    Page{MainElement::volbar, 10},
    Page{MainElement::eq_sld, 5},
    Page{MainElement::balbar, 2},
    Page{MainElement::posbar, 6},
};

/// The lamps over the display and the commands whose state they tell.
struct Lamp {
    MainElement name;
    commands::CommandId command;
};

constexpr std::array kLamps = {
    Lamp{MainElement::Shuffle, commands::CommandId::shuffle},
    Lamp{MainElement::loopImg, commands::CommandId::repeat},
    Lamp{MainElement::CFD, commands::CommandId::crossfade},
    Lamp{MainElement::Sld, commands::CommandId::silenceSkip},
};

/// The command of a button; `none` for what is no button or has nothing to do.
commands::CommandId commandBehind(ui::ElementAddress element) {
    const auto name = element.as<MainElement>();
    for (const PressButton& button : pressButtons()) {
        if (button.up == name) {
            return button.command;
        }
    }
    for (const ClickButton& button : clickButtons()) {
        if (ui::addressOf(button.name, button.index) == element) {
            return button.command;
        }
    }
    return name == MainElement::prebt ? commands::CommandId::preferences
                                      : commands::CommandId::none;
}

bool isDigit(ui::ElementAddress element) {
    return element.as<MainElement>() == MainElement::timed;
}

} // namespace

ui::ElementFacts ElementActions::factsOf(ui::ElementAddress element) const {
    ui::ElementFacts facts;
    const auto name = element.as<MainElement>();
    facts.text = textOf(element);
    facts.range = rangeOf(element);
    if (const auto* const lamp = std::ranges::find(kLamps, name, &Lamp::name);
        lamp != kLamps.end()) {
        facts.enabled = p_.commands.enabled(lamp->command);
        facts.checked = p_.commands.checked(lamp->command);
        return facts;
    }
    const commands::CommandId command = commandBehind(element);
    facts.enabled = facts.range || isDigit(element) || p_.commands.enabled(command);
    // The tabs are commands without a state: their record has it.
    facts.checked = p_.commands.checked(command) ||
                    (name != MainElement::EQ_on && p_.elements.get(name, element.index).checked);
    return facts;
}

std::string ElementActions::textOf(ui::ElementAddress element) const {
    switch (element.as<MainElement>()) {
    case MainElement::timed:
        return (p_.core.screen.playing.countsDown ? "-" : "") + p_.core.screen.playing.time;
    case MainElement::songname:
        return p_.core.screen.playing.scrollerText;
    case MainElement::mono_img:
        return p_.core.screen.playing.mode;
    case MainElement::posbar:
        return p_.core.screen.playing.time;
    case MainElement::volbar:
        return p_.core.screen.playing.volumeText;
    case MainElement::balbar:
        return p_.core.screen.playing.balanceText;
    case MainElement::eq_sld:
        return decibels(p_.knobs.equalizer.decibelsOf(element.index));
    default:
        return p_.elements.get(element.as<MainElement>(), element.index).caption;
    }
}

std::optional<ElementRange> ElementActions::rangeOf(ui::ElementAddress element) const {
    switch (element.as<MainElement>()) {
    case MainElement::posbar: {
        const std::int32_t length = p_.knobs.seek.length();
        return ElementRange{.value = p_.core.screen.playing.percent * length / 100.0,
                            .most = static_cast<double>(length),
                            .step = kSecondsStep};
    }
    case MainElement::volbar:
        return ElementRange{.value = static_cast<double>(p_.core.state.CurrentVolume),
                            .most = kVolumeMost};
    case MainElement::balbar:
        return ElementRange{.value = static_cast<double>(p_.core.state.BalanceValue),
                            .least = -kBalanceMost,
                            .most = kBalanceMost,
                            .step = kBalanceStep};
    case MainElement::eq_sld: {
        // The top of a slider is its least value and the most that one hears.
        const std::int32_t slider = p_.knobs.equalizer.eq_sld(element.index);
        return ElementRange{
            .value = static_cast<double>(player::kSliderMiddle) - slider,
            .least = static_cast<double>(player::kSliderMiddle) - player::kSliderBottom,
            .most = static_cast<double>(player::kSliderMiddle) - player::kSliderTop};
    }
    default:
        return std::nullopt;
    }
}

void ElementActions::activate(ui::ElementAddress element) {
    const auto* const lamp = std::ranges::find(kLamps, element.as<MainElement>(), &Lamp::name);
    if (isDigit(element)) {
        TimeDisplay(p_.core).flip();
    } else if (lamp != kLamps.end()) {
        p_.commands.run(lamp->command);
    } else {
        p_.commands.run(commandBehind(element));
    }
}

void ElementActions::adjust(ui::ElementAddress element, Adjustment adjustment) {
    const auto range = rangeOf(element);
    if (!range) {
        return;
    }
    const auto* const row = std::ranges::find(kPages, element.as<MainElement>(), &Page::name);
    const double page = range->step * (row == kPages.end() ? 1 : row->steps);
    // A place that moves by itself is asked for when it is needed.
    const bool places = element.as<MainElement>() == MainElement::posbar;
    const double value = places ? p_.knobs.seek.second() : range->value;
    switch (adjustment) {
    case Adjustment::Up:
        setValue(element, value + range->step);
        break;
    case Adjustment::Down:
        setValue(element, value - range->step);
        break;
    case Adjustment::PageUp:
        setValue(element, value + page);
        break;
    case Adjustment::PageDown:
        setValue(element, value - page);
        break;
    case Adjustment::Least:
        setValue(element, range->least);
        break;
    case Adjustment::Most:
        setValue(element, range->most);
        break;
    }
}

void ElementActions::setValue(ui::ElementAddress element, double value) {
    const auto range = rangeOf(element);
    if (!range) {
        return;
    }
    const auto held =
        static_cast<std::int32_t>(std::lround(std::clamp(value, range->least, range->most)));
    switch (element.as<MainElement>()) {
    case MainElement::posbar:
        p_.knobs.seek.goTo(held);
        break;
    case MainElement::volbar:
        p_.grips.volume.change(held);
        break;
    case MainElement::balbar:
        // The lamps count from the left.
        p_.grips.balance.click(
            static_cast<std::size_t>(std::lround((held - range->least) / range->step)));
        break;
    default:
        p_.knobs.equalizer.eq_sld(element.index, player::kSliderMiddle - held);
        break;
    }
}

} // namespace tovik::window
