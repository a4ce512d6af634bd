// SPDX-License-Identifier: GPL-3.0-or-later
// How menus look. Numbers of colours are such as `cMemDC::TranslateColor` takes. Interface thread.
#pragma once

#include "menus/MenuImages.h"
#include "ui/TextEngine.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tovik::menus {

struct MenuLook {
    /// The colour from which the light and the shadow of edges are taken.
    std::int32_t DrawStyle = -2147483633;

    std::int32_t BackColor = 8388608; ///< behind the column of the images
    std::int32_t ForeColor = 0x522121;
    std::int32_t HighlightColor = 12615808; ///< behind the caption of the selected item
    std::int32_t HighlightForeColor = 0x1E0A0A; ///< white would be too near to it
    std::int32_t DisabledForeColor = 0xAE837C;
    std::int32_t FaceColor = 0xFCF6F4;      ///< of the menu itself, at its upper edge
    std::int32_t LowerFaceColor = 0xF0E1DD; ///< at its lower edge
    std::int32_t ImageColor = 0xFFEDE9;     ///< in which images are drawn

    bool RightToLeft = false;
    ui::FontDescription Font{}; ///< at a scale of 1

    /// All items are drawn by `cMenus`; without it only those that say so themselves.
    bool ItemOwnerDrawAll = true;

    /// A key that is an accelerator does nothing else.
    bool ConsumeKeys = true;

    /// Tiled behind the items; without one there is the face.
    std::optional<ui::PixelImage> BackGroundPicture{};

    /// Outlives the menus. Null: no images, and no marks either.
    const MenuImages* ImageList = nullptr;

    /// What a system colour is on this desktop.
    std::function<std::optional<ui::Colour>(int)> SystemColour{};
};

} // namespace tovik::menus
