// SPDX-License-Identifier: GPL-3.0-or-later
// The records of one window in z-order, and what changed in them since they were last shown.
// Logic uses it through `ElementTable`, a widget as it is. Interface thread.
#pragma once

#include "ui/ElementLayout.h"

#include <functional>
#include <optional>
#include <vector>

namespace tovik::ui {

class ElementStore {
public:
    /// An element that looks different from before. A box is empty where it was or is not shown.
    struct Change {
        std::size_t slot = 0;
        std::optional<Box> before;
        std::optional<Box> after;
    };

    ElementStore(const ElementStore&) = delete;
    ElementStore& operator=(const ElementStore&) = delete;

    /// Slots count from 0 in z-order, the rearmost first.
    [[nodiscard]] std::size_t size() const noexcept { return elements_.size(); }

    [[nodiscard]] const Element& at(std::size_t slot) const noexcept { return elements_[slot]; }

    [[nodiscard]] ElementAddress address(std::size_t slot) const noexcept {
        return addresses_[slot];
    }

    /// The slot of an element. Raises 9 when the window has no such element.
    [[nodiscard]] std::size_t slotOf(ElementAddress address) const;

    /// Notes an element as touched and gives it for writing, now and not later. Raises 9 like
    /// `slotOf`. Who knows the window's names writes through `ElementTable`; this is for parts
    /// that serve every window.
    [[nodiscard]] Element& touchAt(ElementAddress address) { return touchSlot(slotOf(address)); }

    /// The topmost element at a place, in skin pixels, that is visible and takes the mouse, whether
    /// it is enabled or not.
    [[nodiscard]] std::optional<std::size_t> topmostAt(double x, double y) const noexcept;

    /// `touched` is called at the first write after changes were taken, and not again until they
    /// are taken the next time. It must not take them itself: the write is still going on.
    void onTouched(std::function<void()> touched) { onTouched_ = std::move(touched); }

    /// The elements that look different from when changes were last taken, in z-order. Writes that
    /// left a record as it was, and writes to records that are hidden before and after, are none.
    [[nodiscard]] std::vector<Change> takeChanges();

    /// Takes all changes and forgets them: the whole window is about to be drawn.
    void forgetChanges();

protected:
    ElementStore() = default;
    ~ElementStore() = default;

    /// Puts an element in front of all others. Changes count from then on.
    void append(ElementAddress address, Element element);

    /// The number of elements of a name.
    [[nodiscard]] std::size_t countOf(std::uint16_t name) const noexcept;

    /// The one door for writing.
    [[nodiscard]] Element& touchSlot(std::size_t slot);

private:
    std::vector<Element> elements_;
    std::vector<Element> shown_;
    std::vector<ElementAddress> addresses_;
    std::vector<std::vector<std::size_t>> slots_; ///< by name, then by index
    std::vector<std::size_t> touched_;
    std::vector<bool> isTouched_;
    std::function<void()> onTouched_;
};

} // namespace tovik::ui
