// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowPictures.h"

#include "skin/Bitmap.h"
#include "skin/PicturePrint.h"

#include <array>
#include <map>

namespace tovik::window {

namespace {

using N = MainElement;

constexpr auto kPictures = std::to_array<WindowPicture>({
    {"posbar", N::posbar},
    {"track", N::track},
    {"volbar", N::volbar},
    {"volfill", N::volbarIMG},
    // The lamps of the balance, and where they are taken from when it changes.
    {"balance_off", N::balbar, 0, 4},
    {"balance_centre", N::balbar, 4},
    {"balance_off", N::balbar, 5, 4},
    {"balance_on", N::baron},
    {"balance_off", N::baroff},
    {"balance_centre", N::balcnt},
    // The equalizer: its ground, its columns with the backs of their sliders, two scales.
    {"eqwin", N::Image3},
    {"eqslot", N::Picture6, 0, 10},
    {"eqmaster", N::Picture6, 10},
    {"eqscale_left", N::Picture6, 11},
    {"eqscale_right", N::Picture6, 12},
    {"eqslot", N::eq_sld, 0, 10},
    {"eqmaster", N::eq_sld, 10},
});

} // namespace

std::span<const WindowPicture> windowPictures() noexcept {
    return kPictures;
}

void giveWindowPictures(MainElements& elements, ui::PictureStore& pictures,
                        const std::function<std::string(std::string_view)>& bytesOf) {
    std::map<std::string_view, ui::Picture> known;
    for (const WindowPicture& row : kPictures) {
        const auto [place, isNew] = known.try_emplace(row.name);
        if (isNew) {
            const std::string bytes = bytesOf(row.name);
            if (!bytes.empty()) {
                place->second =
                    pictures.add(skin::readBitmap(bytes),
                                 pictures.drawnLike(skin::picturePrint(row.name, bytes)));
            }
        }
        if (!place->second) {
            continue;
        }
        for (std::size_t index = row.first; index < row.first + row.count; ++index) {
            elements.touch(row.element, index).picture = place->second;
        }
    }
}

} // namespace tovik::window
