// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PictureStore.h"

#include "base/RuntimeError.h"

#include <utility>

namespace tovik::ui {

namespace {

void requireWhole(const PixelImage& image) {
    if (image.width < 0 || image.height < 0 || image.density < 1 ||
        image.pixels.size() !=
            static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height)) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
}

} // namespace

Picture PictureStore::add(PixelImage image) {
    requireWhole(image);
    entries_.push_back({std::move(image), 0});
    return {static_cast<std::uint32_t>(entries_.size()), 0};
}

Picture PictureStore::replace(Picture picture, PixelImage image) {
    requireWhole(image);
    if (find(picture) == nullptr) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
    Entry& entry = entries_[picture.number - 1];
    entry.image = std::move(image);
    ++entry.version;
    return {picture.number, entry.version};
}

Picture PictureStore::draw(Picture picture, const std::function<void(PixelImage&)>& paint) {
    if (find(picture) == nullptr) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
    Entry& entry = entries_[picture.number - 1];
    paint(entry.image);
    ++entry.version;
    return {picture.number, entry.version};
}

const PixelImage* PictureStore::find(Picture picture) const noexcept {
    return picture && picture.number <= entries_.size() ? &entries_[picture.number - 1].image
                                                        : nullptr;
}

} // namespace tovik::ui
