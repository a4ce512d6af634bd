// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/AccessList.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

AccessList::AccessList(const ElementStore& elements, std::vector<AccessPlace> places)
    : elements_(elements), places_(std::move(places)) {
    slots_.reserve(places_.size());
    for (const AccessPlace& place : places_) {
        slots_.push_back(slotsOf(place));
    }
}

std::vector<std::size_t> AccessList::slotsOf(const AccessPlace& place) const {
    std::vector<std::size_t> slots;
    for (std::size_t part = 0; part < place.parts; ++part) {
        ElementAddress address = place.element;
        address.index = static_cast<std::uint16_t>(address.index + part);
        slots.push_back(elements_.slotOf(address));
    }
    if (place.face) {
        slots.push_back(elements_.slotOf(*place.face));
    }
    return slots;
}

const Element& AccessList::element(std::size_t index) const {
    return elements_.at(slots_.at(index).front());
}

const std::string& AccessList::name(std::size_t index) const {
    const Element& record = element(index);
    if (!record.name.empty()) {
        return record.name;
    }
    return record.tooltip.empty() ? record.caption : record.tooltip;
}

bool AccessList::shown(std::size_t index) const {
    return std::ranges::any_of(slots_.at(index),
                               [this](std::size_t slot) { return elements_.at(slot).visible; });
}

bool AccessList::enabled(std::size_t index) const {
    return std::ranges::none_of(slots_.at(index), [this](std::size_t slot) {
        return elements_.at(slot).visible && !elements_.at(slot).enabled;
    });
}

Box AccessList::box(std::size_t index) const {
    std::optional<Box> whole;
    for (const std::size_t slot : slots_.at(index)) {
        const Element& one = elements_.at(slot);
        if (!one.visible) {
            continue;
        }
        const Box box = one.box();
        if (!whole) {
            whole = box;
            continue;
        }
        const double right = std::max(whole->left + whole->width, box.left + box.width);
        const double bottom = std::max(whole->top + whole->height, box.top + box.height);
        whole->left = std::min(whole->left, box.left);
        whole->top = std::min(whole->top, box.top);
        whole->width = right - whole->left;
        whole->height = bottom - whole->top;
    }
    return whole.value_or(element(index).box());
}

std::optional<std::size_t> AccessList::placeOf(std::size_t slot) const {
    for (std::size_t index = 0; index < slots_.size(); ++index) {
        if (std::ranges::find(slots_[index], slot) != slots_[index].end()) {
            return index;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t>
AccessList::nextStop(std::optional<std::size_t> from, bool forward,
                     const std::function<bool(std::size_t)>& willing) const {
    const std::size_t count = places_.size();
    for (std::size_t step = 1; step <= count; ++step) {
        const std::size_t start = from.value_or(forward ? count - 1 : 0);
        const std::size_t index = (start + (forward ? step : count - step)) % count;
        if (index != from && isStop(places_[index].role) && shown(index) && enabled(index) &&
            willing(index)) {
            return index;
        }
    }
    return std::nullopt;
}

} // namespace tovik::ui
