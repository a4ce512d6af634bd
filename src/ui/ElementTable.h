// SPDX-License-Identifier: GPL-3.0-or-later
// The elements of one window by name: `table.touch(MainElement::playup).visible = true;`. A name
// is an enumerator, so a wrong one does not compile. Interface thread.
#pragma once

#include "ui/ElementStore.h"

#include <span>

namespace tovik::ui {

template <typename Name>
class ElementTable final : public ElementStore {
public:
    explicit ElementTable(std::span<const ElementPlace<Name>> layout) {
        for (const ElementPlace<Name>& place : layout) {
            for (std::size_t offset = 0; offset < place.count; ++offset) {
                append(addressOf(place.name, place.first + offset), elementAt(place, offset));
            }
        }
    }

    /// Reads an element. Raises 9 for an index that the name does not have.
    [[nodiscard]] const Element& get(Name name, std::size_t index = 0) const {
        return at(slotOf(addressOf(name, index)));
    }

    /// Notes the element as touched and gives it for writing, now and not later: the reference is
    /// for the statement at hand. Raises 9 like `get`.
    [[nodiscard]] Element& touch(Name name, std::size_t index = 0) {
        return touchSlot(slotOf(addressOf(name, index)));
    }

    /// The number of elements of that name.
    [[nodiscard]] std::size_t count(Name name) const noexcept {
        return countOf(static_cast<std::uint16_t>(name));
    }
};

} // namespace tovik::ui
