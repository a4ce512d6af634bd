// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/SkinBitmaps.h"

#include "base/ErrorPlace.h"
#include "base/RuntimeError.h"
#include "skin/Bitmap.h"

namespace tovik::window {

namespace {

constexpr std::string_view kFolder = "skins/CurrentSkin/";
constexpr std::string_view kEnding = ".bmp";

} // namespace

std::string skinBitmapPath(const host::Paths& paths, std::string_view name) {
    std::string file(kFolder);
    return paths.inside(file.append(name).append(kEnding));
}

ui::PixelImage loadSkinBitmap(const std::string& path) {
    try {
        return skin::loadBitmap(path);
    } catch (const base::RuntimeError& error) {
        throw base::withPlace(error, path);
    }
}

} // namespace tovik::window
