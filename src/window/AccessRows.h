// SPDX-License-Identifier: GPL-3.0-or-later
// The table of what a window's elements are to the keyboard and screen readers, written in the
// names of that window. Any thread.
#pragma once

#include "ui/AccessList.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tovik::window {

/// `count` places of one name, from index `first` on, each of `parts` elements.
template <typename Name>
struct AccessRow {
    Name name{};
    ui::ElementRole role{};
    std::size_t first = 0;
    std::size_t count = 1;
    std::size_t parts = 1;
    std::optional<Name> face{};
};

template <typename Name>
[[nodiscard]] constexpr AccessRow<Name> two(Name name, ui::ElementRole role, Name face) {
    return {.name = name, .role = role, .face = face};
}

template <typename Name>
[[nodiscard]] constexpr AccessRow<Name> several(Name name, ui::ElementRole role,
                                                std::size_t count) {
    return {.name = name, .role = role, .count = count};
}

template <typename Name>
[[nodiscard]] std::vector<ui::AccessPlace> accessPlaces(std::span<const AccessRow<Name>> rows) {
    std::vector<ui::AccessPlace> places;
    for (const AccessRow<Name>& row : rows) {
        for (std::size_t i = 0; i < row.count; ++i) {
            places.push_back(
                {.element = ui::addressOf(row.name, row.first + i),
                 .parts = row.parts,
                 .face = row.face ? std::optional(ui::addressOf(*row.face)) : std::nullopt,
                 .role = row.role});
        }
    }
    return places;
}

} // namespace tovik::window
