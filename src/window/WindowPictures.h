// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of elements that no file of a skin gives one: bars, lamps and the equalizer's
// ground. They belong to the window. Interface thread.
#pragma once

#include "ui/PictureStore.h"
#include "window/MainElements.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace tovik::window {

/// Elements of one name, from index `first` on, that show the same picture.
struct WindowPicture {
    std::string_view name; ///< of the picture
    MainElement element{};
    std::size_t first = 0;
    std::size_t count = 1;
};

[[nodiscard]] std::span<const WindowPicture> windowPictures() noexcept;

/// Gives these elements their pictures. `bytesOf` answers with the bitmap of a name; an element
/// whose bitmap is empty keeps its plain look. Raises 481 for bytes that are no bitmap.
void giveWindowPictures(MainElements& elements, ui::PictureStore& pictures,
                        const std::function<std::string(std::string_view)>& bytesOf);

} // namespace tovik::window
