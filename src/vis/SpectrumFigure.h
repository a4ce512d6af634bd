// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of the spectrum: bars with a mark above each, on black. Only what moved is drawn.
// Interface thread.
#pragma once

#include "ui/PictureStore.h"
#include "vis/SpectrumData.h"

#include <array>

namespace tovik::vis {

/// From the left edge of one bar to that of the next, in pixels of a picture that is no wider than
/// it must be.
inline constexpr int kBarPitch = 5;

/// The right edge of the first bar, which lies outside it; the left one is 1.
inline constexpr int kSpectrumBarRight = 5;

/// The width of such a picture. In one that is at least twice as wide the bars grow with it, and so
/// do the marks.
inline constexpr int kPlainWidth = static_cast<int>(kBands) * kBarPitch + 1;

class SpectrumFigure {
public:
    /// The next drawing begins with an empty picture.
    void forget() { everything_ = true; }

    /// Puts bars and marks where the levels are in a picture of that size. Returns whether there
    /// is something to draw.
    [[nodiscard]] bool place(const SpectrumData& data, int width, int height);

    /// Draws the columns that moved. The bars show what `bars` has at their place, repeated from
    /// the upper left corner on; null: a picture of our own. Allocates nothing, but for our own
    /// picture when its height is another.
    void draw(ui::PixelImage& picture, const ui::PixelImage* bars);

private:
    struct Column {
        int top = 0;  ///< the row where the bar begins; the height for none
        int mark = 0; ///< the row of the mark; likewise

        friend bool operator==(const Column&, const Column&) = default;
    };

    void drawColumn(ui::PixelImage& picture, const ui::PixelImage& bars, std::size_t band) const;

    std::array<Column, kBands> wanted_{};
    std::array<Column, kBands> drawn_{};
    bool everything_ = true;
    int grown_ = 1; ///< how many times as wide as in the window the bars are
    ui::PixelImage ownBars_;
};

} // namespace tovik::vis
