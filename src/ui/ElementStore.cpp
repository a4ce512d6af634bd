// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ElementStore.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

namespace {

constexpr std::size_t kNoSlot = static_cast<std::size_t>(-1);

/// A tooltip is part of the record but not of what is painted.
bool looksDifferent(const Element& left, const Element& right) {
    if (!left.visible && !right.visible) {
        return false;
    }
    Element same = left;
    same.tooltip = right.tooltip;
    return same != right;
}

std::optional<Box> shownBox(const Element& element) {
    return element.visible ? std::optional(element.box()) : std::nullopt;
}

} // namespace

std::size_t ElementStore::slotOf(ElementAddress address) const {
    if (address.index >= countOf(address.name) || slots_[address.name][address.index] == kNoSlot) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return slots_[address.name][address.index];
}

std::optional<std::size_t> ElementStore::topmostAt(double x, double y) const noexcept {
    for (std::size_t slot = size(); slot-- > 0;) {
        const Element& element = elements_[slot];
        if (element.visible && element.takesMouse && element.box().contains(x, y)) {
            return slot;
        }
    }
    return std::nullopt;
}

std::vector<ElementStore::Change> ElementStore::takeChanges() {
    std::sort(touched_.begin(), touched_.end());
    std::vector<Change> changes;
    for (const std::size_t slot : touched_) {
        isTouched_[slot] = false;
        const Element& now = elements_[slot];
        if (looksDifferent(shown_[slot], now)) {
            changes.push_back({slot, shownBox(shown_[slot]), shownBox(now)});
        }
        shown_[slot] = now;
    }
    touched_.clear();
    return changes;
}

void ElementStore::forgetChanges() {
    for (const std::size_t slot : touched_) {
        isTouched_[slot] = false;
        shown_[slot] = elements_[slot];
    }
    touched_.clear();
}

void ElementStore::append(ElementAddress address, Element element) {
    if (address.name >= slots_.size()) {
        slots_.resize(address.name + std::size_t{1});
    }
    std::vector<std::size_t>& indices = slots_[address.name];
    if (address.index >= indices.size()) {
        indices.resize(address.index + std::size_t{1}, kNoSlot);
    }
    indices[address.index] = size();
    addresses_.push_back(address);
    shown_.push_back(element);
    elements_.push_back(std::move(element));
    isTouched_.push_back(false);
}

std::size_t ElementStore::countOf(std::uint16_t name) const noexcept {
    return name < slots_.size() ? slots_[name].size() : 0;
}

Element& ElementStore::touchSlot(std::size_t slot) {
    if (!isTouched_[slot]) {
        isTouched_[slot] = true;
        touched_.push_back(slot);
        if (touched_.size() == 1 && onTouched_) {
            onTouched_();
        }
    }
    return elements_[slot];
}

} // namespace tovik::ui
