// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that elements name. Interface thread.
#pragma once

#include "ui/Element.h"

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace tovik::ui {

/// Pixels row by row from the top, each 0xAARRGGBB with colours already multiplied by alpha.
struct PixelImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; ///< width * height of them
    int density = 1; ///< how many of them along a side make one skin pixel; 1 or more
};

/// Draws a picture again for a screen where a skin pixel is `factor` pixels along a side: in the
/// largest density that it knows and that divides the factor, so that what is left to enlarge is a
/// whole factor, too. Without pixels where it knows none.
using Redraw = std::function<PixelImage(int factor)>;

/// A picture is kept in skin pixels, and for dense screens also in the size in which it was last
/// asked for.
class PictureStore {
public:
    /// Keeps an image for good. Raises 5 when its pixels do not fill its size.
    [[nodiscard]] Picture add(PixelImage image, Redraw redraw = nullptr);

    /// Changes the pixels. Elements show them once they carry the value returned here.
    [[nodiscard]] Picture replace(Picture picture, PixelImage image, Redraw redraw = nullptr);

    /// Lets `paint` change pixels where they are, but not the size. Elements show them once they
    /// carry the value returned here. Raises 5 for no picture and for one of another store.
    [[nodiscard]] Picture draw(Picture picture, const std::function<void(PixelImage&)>& paint);

    /// The image of a picture; null for no picture and for one of another store.
    [[nodiscard]] const PixelImage* find(Picture picture) const noexcept;

    /// The image for a screen where a skin pixel is `factor` pixels along a side (see `Redraw`). It
    /// is drawn when it is first asked for and stays until the pixels change or another factor is
    /// asked for.
    [[nodiscard]] const PixelImage* find(Picture picture, int factor) const;

    /// Where bitmaps are found in larger sizes: `Redraw` for one of that print. Without it there
    /// are none.
    void takeFineFrom(std::function<PixelImage(std::uint64_t print, int factor)> source) {
        source_ = std::move(source);
    }

    /// For a picture whose bitmap has that print. Used by this store only.
    [[nodiscard]] Redraw drawnLike(std::uint64_t print) const;

    /// What the pixels take, in bytes: those in skin pixels, and those in larger sizes.
    struct Sizes {
        std::size_t plain = 0;
        std::size_t fine = 0;
    };

    [[nodiscard]] Sizes sizes() const noexcept;

private:
    struct Fine {
        PixelImage image; ///< without pixels where there is none
        int asked = 0;    ///< the factor it was looked for with
    };

    struct Entry {
        PixelImage image;
        std::uint32_t version = 0;
        Redraw redraw;
        mutable Fine fine; ///< a copy of what `redraw` gives
    };

    static void lookForFine(const Entry& entry, int factor);

    std::vector<Entry> entries_; ///< picture number n is entry n - 1
    std::function<PixelImage(std::uint64_t, int)> source_;
};

} // namespace tovik::ui
