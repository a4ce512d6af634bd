// SPDX-License-Identifier: GPL-3.0-or-later
// The images and marks of menus, kept as outlines and drawn in the size that is asked for, so that
// they are sharp at any scale and no font is asked for them. Interface thread.
#pragma once

#include "menus/MenuImages.h"

namespace tovik::ui {

class MenuPictures final : public menus::MenuImages {
public:
    [[nodiscard]] int indexOf(std::string_view key) const override;
    [[nodiscard]] PixelImage image(int index, int side, Colour ink) const override;
    [[nodiscard]] PixelImage mark(menus::MenuMark mark, int side, Colour ink) const override;
};

} // namespace tovik::ui
