// SPDX-License-Identifier: GPL-3.0-or-later
// How well words can be read: the contrast ratio of the Web Content Accessibility Guidelines 2.1
// (W3C), as "contrast ratio" and "relative luminance" are defined there. Success criterion 1.4.3
// asks for 4.5.
#pragma once

#include "ui/ListColours.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace tovik::ui::test {

/// 0 for black to 1 for white.
inline double relativeLuminance(Colour colour) {
    const auto linear = [](std::uint8_t channel) {
        const double share = channel / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) +
           0.0722 * linear(colour.blue);
}

/// 1 for two equal colours to 21 for black and white.
inline double contrast(Colour one, Colour other) {
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// Words and what is behind them.
struct ColourPair {
    Colour text;
    Colour back;
    std::string what;
};

/// All that a list with these colours shows: titles and times of rows that are plain, selected,
/// played, and both.
inline std::vector<ColourPair> pairsOf(const ListColours& colours) {
    std::vector<ColourPair> pairs;
    for (const bool selected : {false, true}) {
        for (const bool played : {false, true}) {
            const RowColours row = rowColours(colours, selected, played);
            const std::string what =
                std::string(selected ? "selected " : "") + (played ? "played " : "");
            pairs.push_back({row.titleText, row.titleBack, what + "title"});
            pairs.push_back({row.timeText, row.timeBack, what + "time"});
        }
    }
    return pairs;
}

} // namespace tovik::ui::test
