// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/EqualizerSliders.h"

#include "base/RuntimeError.h"
#include "window/Decibels.h"
#include "window/PanelTable.h"

#include <string>

namespace tovik::window {

using player::Equalizer;

namespace {

/// Notes which slider moves the curve, for as long as it does.
class Moving {
public:
    Moving(std::optional<std::size_t>& moved, std::size_t index) : moved_(moved) { moved = index; }

    ~Moving() { moved_.reset(); }

    Moving(const Moving&) = delete;
    Moving& operator=(const Moving&) = delete;

private:
    std::optional<std::size_t>& moved_;
};

} // namespace

EqualizerSliders::EqualizerSliders(const player::PlayerState& state, Equalizer& equalizer,
                                   MainElements& elements, host::Dialogs& dialogs)
    : state_(state), equalizer_(equalizer), elements_(elements) {
    sliders_.reserve(Equalizer::kSliders);
    for (std::size_t index = 0; index < Equalizer::kSliders; ++index) {
        sliders_.emplace_back(elements, ui::addressOf(MainElement::eq_sld, index), dialogs,
                              ui::SliderRange{.Min = player::kSliderTop,
                                              .Max = player::kSliderBottom,
                                              .Value = equalizer.eq_sld(index)});
        sliders_.back().Change = [this, index] {
            const Moving moving(moved_, index);
            equalizer_.eq_sld(index, sliders_[index].Value());
        };
    }
}

ui::PicVScroll& EqualizerSliders::eq_sld(std::size_t index) {
    if (index >= sliders_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return sliders_[index];
}

void EqualizerSliders::draw() {
    const ui::Element& bar = elements_.get(MainElement::Picture7);
    for (ui::PicVScroll& slider : sliders_) {
        if (bar.picture) {
            slider.Bar(bar.picture, bar.height);
        } else {
            slider.DrawBar(true);
        }
    }
}

void EqualizerSliders::tell(std::optional<std::size_t> slider) {
    told_ = slider;
    std::string words;
    if (slider) {
        const std::string& name = elements_.get(MainElement::eq_sld, *slider).name;
        words = (name.empty() ? "" : name + ":  ") + decibels(equalizer_.decibelsOf(*slider));
    }
    if (elements_.get(MainElement::eq_val).caption != words) {
        elements_.touch(MainElement::eq_val).caption = words;
    }
}

void EqualizerSliders::showSlider(std::size_t slider, std::int32_t value) {
    if (told_ == slider) {
        tell(slider);
    }
    // A bar that is dragged stays under the pointer, between two values.
    if (moved_ != slider) {
        eq_sld(slider).ShowValue(value);
    }
}

void EqualizerSliders::showEqualizer() {
    applyPanel(elements_, state_, MainElement::EQ_on);
    applyPanel(elements_, state_, MainElement::EQ_off);
}

} // namespace tovik::window
