// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that elements name. Interface thread.
#pragma once

#include "ui/Element.h"

#include <functional>
#include <vector>

namespace tovik::ui {

/// Pixels row by row from the top, each 0xAARRGGBB with colours already multiplied by alpha.
struct PixelImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; ///< width * height of them
    int density = 1; ///< how many of them along a side make one skin pixel; 1 or more
};

class PictureStore {
public:
    /// Keeps an image for good. Raises 5 when its pixels do not fill its size.
    [[nodiscard]] Picture add(PixelImage image);

    /// Changes the pixels. Elements show them once they carry the value returned here.
    [[nodiscard]] Picture replace(Picture picture, PixelImage image);

    /// Lets `paint` change pixels where they are, but not the size. Elements show them once they
    /// carry the value returned here. Raises 5 for no picture and for one of another store.
    [[nodiscard]] Picture draw(Picture picture, const std::function<void(PixelImage&)>& paint);

    /// The image of a picture; null for no picture and for one of another store.
    [[nodiscard]] const PixelImage* find(Picture picture) const noexcept;

private:
    struct Entry {
        PixelImage image;
        std::uint32_t version = 0;
    };

    std::vector<Entry> entries_; ///< picture number n is entry n - 1
};

} // namespace tovik::ui
