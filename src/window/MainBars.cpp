// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainBars.h"

#include <algorithm>
#include <array>

namespace tovik::window {

MainBars::Bar MainBars::barUnder(const ui::PointerEvent& event) {
    struct Part {
        MainElement name;
        Bar bar;
    };

    // A mark and a fill lie over their bars.
    static constexpr std::array kParts = {
        Part{MainElement::posbar, Bar::position}, Part{MainElement::track, Bar::position},
        Part{MainElement::volbar, Bar::volume},   Part{MainElement::volbarIMG, Bar::volume},
        Part{MainElement::balbar, Bar::balance},
    };
    const auto* const found =
        std::ranges::find_if(kParts, [&](const Part& part) { return event.over(part.name); });
    return found == kParts.end() ? Bar::none : found->bar;
}

double MainBars::alongPosition(const ui::PointerEvent& event) const {
    return event.windowX - elements_.get(MainElement::posbar).left;
}

double MainBars::alongVolume(const ui::PointerEvent& event) const {
    return event.windowY - elements_.get(MainElement::volbar).top;
}

std::optional<std::size_t> MainBars::lampUnder(const ui::PointerEvent& event) const {
    for (std::size_t lamp = 0; lamp < elements_.count(MainElement::balbar); ++lamp) {
        if (elements_.get(MainElement::balbar, lamp).box().contains(event.windowX, event.windowY)) {
            return lamp;
        }
    }
    return std::nullopt;
}

void MainBars::mouseDown(const ui::PointerEvent& event) {
    const Bar bar = barUnder(event);
    if (bar == Bar::position) {
        position_.Posbar_MouseDown(alongPosition(event));
    } else if (bar == Bar::volume) {
        volume_.volbar_MouseDown(alongVolume(event));
    }
}

void MainBars::mouseMove(const ui::PointerEvent& event) {
    const Bar bar = event.leftHeld ? barUnder(event) : Bar::none;
    if (bar == Bar::position) {
        position_.Posbar_MouseMove(alongPosition(event));
    } else if (bar == Bar::volume) {
        volume_.volbar_MouseMove(alongVolume(event));
    }
    if (bar != Bar::balance) {
        balance_.endHover();
    } else if (const auto lamp = lampUnder(event)) {
        balance_.hover(*lamp);
    }
}

void MainBars::mouseUp(const ui::PointerEvent& event) {
    const Bar bar = barUnder(event);
    if (bar == Bar::position) {
        position_.Posbar_MouseUp(alongPosition(event));
    } else if (bar == Bar::balance) {
        balance_.endHover();
        if (const auto lamp = lampUnder(event)) {
            balance_.click(*lamp);
        }
    }
}

} // namespace tovik::window
