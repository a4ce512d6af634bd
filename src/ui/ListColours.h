// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of a list. Any thread.
#pragma once

#include "ui/Element.h"

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
    std::optional<Colour> SelectedBorderColor; ///< above and below a run of selected rows
    std::optional<Colour> PlayedBorderColor;   ///< around the row that plays

    friend bool operator==(const ListColours&, const ListColours&) = default;
};

} // namespace tovik::ui
