// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PicVScroll.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <cmath>

namespace tovik::ui {

namespace {

constexpr const char* kErrorTitle = "Error";

/// A division by zero (a back no higher than its bar, a range of one value) and a place too far
/// away leave the number as it was.
template <typename Compute>
void keepOnError(std::int32_t& number, const Compute& compute) {
    try {
        number = base::toInt32(compute());
    } catch (const base::RuntimeError&) { // NOLINT(bugprone-empty-catch): the old one stays
    }
}

} // namespace

void PicVScroll::BackColor(std::optional<Colour> colour) {
    elements_.touchAt(address_).backColour = colour;
}

void PicVScroll::Bar(ui::Picture picture, double height) {
    Element& element = elements_.touchAt(address_);
    element.bar.picture = picture;
    element.bar.height = height;
    DrawBar(true);
}

void PicVScroll::Picture(ui::Picture picture) {
    elements_.touchAt(address_).picture = picture;
}

void PicVScroll::Max(std::int32_t maximum) {
    if (maximum < range_.Value) {
        refuse("Maximum exceeds value!");
        return;
    }
    range_.Max = maximum;
}

void PicVScroll::Min(std::int32_t minimum) {
    if (minimum > range_.Value) {
        refuse("Minimum exceeds value!");
        return;
    }
    range_.Min = minimum;
}

void PicVScroll::Value(std::int32_t value) {
    if (value < range_.Min || value > range_.Max) {
        refuse("Value exceeds limits!");
        return;
    }
    range_.Value = value;
    DrawBar(true);
    changed();
}

void PicVScroll::refuse(const char* text) {
    dialogs_.showMessage(
        {.text = text, .title = kErrorTitle, .icon = host::MessageIcon::Exclamation});
}

void PicVScroll::changed() const {
    if (Change) {
        Change();
    }
}

void PicVScroll::DrawBar(bool redrawn) {
    if (redrawn) {
        BarFromValue();
    }
    elements_.touchAt(address_).bar.top = BarTop_;
}

void PicVScroll::ValueFromBar() {
    keepOnError(range_.Value, [this] {
        return base::divide(BarTop_, room()) * (static_cast<double>(range_.Max) - range_.Min) +
               range_.Min;
    });
}

void PicVScroll::BarFromValue() {
    keepOnError(BarTop_, [this] {
        return base::divide(static_cast<double>(range_.Value) - range_.Min,
                            static_cast<double>(range_.Max) - range_.Min) *
               room();
    });
}

void PicVScroll::placeBar(double y) {
    const double half = element().bar.height / 2;
    keepOnError(BarTop_, [&]() -> double {
        if (y > element().height - half) {
            return room();
        }
        return y <= half ? 0 : y - half;
    });
}

void PicVScroll::follow(const PointerEvent& event) {
    placeBar(std::floor(event.y)); // the pixel that the pointer is on
    DrawBar(false);
    ValueFromBar();
    changed();
}

void PicVScroll::mouseDown(const PointerEvent& event) {
    if (event.button == MouseButton::Right) {
        if (RightClick) {
            RightClick();
        }
        return;
    }
    Dragging_ = true;
    follow(event);
    if (MouseDown) {
        MouseDown(event);
    }
}

void PicVScroll::mouseMove(const PointerEvent& event) {
    if (Dragging_) {
        follow(event);
    }
}

void PicVScroll::mouseUp(const PointerEvent& /*event*/) {
    Dragging_ = false;
}

void PicVScroll::doubleClick() {
    Dragging_ = false;
    Value(static_cast<std::int32_t>((std::int64_t{range_.Min} + range_.Max) / 2));
}

void PicVScroll::turn(double notches) {
    const double whole = wheel_.whole(notches);
    const double value = std::clamp(range_.Value - whole, static_cast<double>(range_.Min),
                                    static_cast<double>(range_.Max));
    if (value != range_.Value) {
        Value(static_cast<std::int32_t>(value));
    }
}

} // namespace tovik::ui
