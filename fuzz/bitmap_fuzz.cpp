// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a bitmap file: it is a whole picture or is refused.
#include "base/RuntimeError.h"
#include "skin/Bitmap.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovik;
    try {
        const ui::PixelImage image = skin::readBitmap(std::string(data, data + size));
        demand(image.width > 0 && image.height > 0);
        demand(image.pixels.size() ==
               static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
        for (const std::uint32_t pixel : image.pixels) {
            demand(pixel == 0 || pixel >> 24 == 0xFF);
        }
    } catch (const base::RuntimeError& error) {
        demand(error.number() == static_cast<int>(base::ErrorNumber::InvalidPicture));
    }
    return 0;
}
