// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/SkinBitmaps.h"

#include "base/ErrorPlace.h"
#include "base/RuntimeError.h"
#include "skin/Bitmap.h"
#include "skin/PicturePrint.h"

namespace tovik::window {

namespace {

constexpr std::string_view kFolder = "skins/CurrentSkin/";
constexpr std::string_view kEnding = ".bmp";

} // namespace

std::string skinBitmapPath(const host::Paths& paths, std::string_view name) {
    std::string file(kFolder);
    return paths.inside(file.append(name).append(kEnding));
}

SkinBitmap loadSkinBitmap(const host::Paths& paths, std::string_view name) {
    const std::string path = skinBitmapPath(paths, name);
    try {
        const std::string bytes = skin::bitmapFile(path);
        return {skin::readBitmap(bytes), skin::picturePrint(name, bytes)};
    } catch (const base::RuntimeError& error) {
        throw base::withPlace(error, path);
    }
}

} // namespace tovik::window
