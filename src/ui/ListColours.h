// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a list. Any thread.
#pragma once

#include "ui/Element.h"

#include <cstdint>
#include <optional>

namespace tovik::ui {

/// Where a back or a border has no colour, nothing is drawn for it.
struct ListColours {
    Colour BackgroundColor;
    std::optional<Colour> BackgroundTimeColor; ///< of the column with the times
    Colour TitleTextColor;                     ///< also that of the numbers
    Colour TimeTextColor;
    Colour SelectedTitleTextColor;
    Colour SelectedTimeTextColor;
    Colour PlayedTitleTextColor;
    Colour PlayedTimeTextColor;
    std::optional<Colour> SelectedTitleBackColor;
    std::optional<Colour> SelectedTimeBackColor;
    std::optional<Colour> PlayedTitleBackColor; ///< behind the title the selected one wins
    std::optional<Colour> PlayedTimeBackColor;  ///< behind the time it wins over the selected one
    std::optional<Colour> SelectedBorderColor;  ///< above and below a run of selected rows
    std::optional<Colour> PlayedBorderColor;    ///< around the row that plays

    friend bool operator==(const ListColours&, const ListColours&) = default;
};

/// What an empty list says is quieter than a title: between that and the ground.
[[nodiscard]] constexpr Colour hintColour(const ListColours& of) {
    constexpr int kShare = 80; // of the title's colour, in hundredths
    const auto mixed = [](int text, int back) {
        return static_cast<std::uint8_t>((text * kShare + back * (100 - kShare)) / 100);
    };
    return {.red = mixed(of.TitleTextColor.red, of.BackgroundColor.red),
            .green = mixed(of.TitleTextColor.green, of.BackgroundColor.green),
            .blue = mixed(of.TitleTextColor.blue, of.BackgroundColor.blue)};
}

/// The colours of one row.
struct RowColours {
    Colour titleText;
    Colour titleBack;
    Colour timeText;
    Colour timeBack;
};

[[nodiscard]] constexpr RowColours rowColours(const ListColours& of, bool selected, bool played) {
    const Colour column = of.BackgroundTimeColor.value_or(of.BackgroundColor);
    RowColours row{.titleText = of.TitleTextColor,
                   .titleBack = of.BackgroundColor,
                   .timeText = of.TimeTextColor,
                   .timeBack = column};
    if (selected) {
        row = {.titleText = of.SelectedTitleTextColor,
               .titleBack = of.SelectedTitleBackColor.value_or(row.titleBack),
               .timeText = of.SelectedTimeTextColor,
               .timeBack = of.SelectedTimeBackColor.value_or(row.timeBack)};
    }
    // A selected row that plays shows both: the one behind its title, the other behind its time.
    if (played) {
        row = {.titleText = of.PlayedTitleTextColor,
               .titleBack =
                   selected ? row.titleBack : of.PlayedTitleBackColor.value_or(row.titleBack),
               .timeText = of.PlayedTimeTextColor,
               .timeBack = of.PlayedTimeBackColor.value_or(row.timeBack)};
    }
    return row;
}

} // namespace tovik::ui
