// SPDX-License-Identifier: GPL-3.0-or-later
// The list of images that menu items name, and the marks that are drawn beside them. Interface
// thread.
#pragma once

#include "ui/PictureStore.h"

#include <cstdint>
#include <string_view>

namespace tovik::menus {

enum class MenuMark : std::uint8_t {
    Check,
    Radio,
    Arrow,         ///< of an item that opens a menu to its right
    ArrowLeftward, ///< likewise to its left
};

class MenuImages {
public:
    virtual ~MenuImages() = default;
    MenuImages(const MenuImages&) = delete;
    MenuImages& operator=(const MenuImages&) = delete;

    /// The number of an image, from 0; -1 for an unknown key. ASCII case does not count.
    [[nodiscard]] virtual int indexOf(std::string_view key) const = 0;

    /// A square picture with that many pixels a side, drawn in that colour where it has none of
    /// its own; empty for a number that is none.
    [[nodiscard]] virtual ui::PixelImage image(int index, int side, ui::Colour ink) const = 0;

    [[nodiscard]] virtual ui::PixelImage mark(MenuMark mark, int side, ui::Colour ink) const = 0;

protected:
    MenuImages() = default;
};

} // namespace tovik::menus
