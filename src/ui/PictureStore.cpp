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

Picture PictureStore::add(PixelImage image, Redraw redraw) {
    requireWhole(image);
    entries_.push_back({std::move(image), 0, std::move(redraw), {}});
    return {static_cast<std::uint32_t>(entries_.size()), 0};
}

Picture PictureStore::replace(Picture picture, PixelImage image, Redraw redraw) {
    requireWhole(image);
    if (find(picture) == nullptr) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
    Entry& entry = entries_[picture.number - 1];
    entry.image = std::move(image);
    entry.redraw = std::move(redraw);
    entry.fine = {};
    ++entry.version;
    return {picture.number, entry.version};
}

Picture PictureStore::draw(Picture picture, const std::function<void(PixelImage&)>& paint) {
    if (find(picture) == nullptr) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
    Entry& entry = entries_[picture.number - 1];
    paint(entry.image);
    entry.redraw = nullptr;
    entry.fine = {};
    ++entry.version;
    return {picture.number, entry.version};
}

const PixelImage* PictureStore::find(Picture picture) const noexcept {
    return picture && picture.number <= entries_.size() ? &entries_[picture.number - 1].image
                                                        : nullptr;
}

const PixelImage* PictureStore::find(Picture picture, int factor) const {
    const PixelImage* const plain = find(picture);
    if (plain == nullptr || factor <= 1) {
        return plain;
    }
    const Entry& entry = entries_[picture.number - 1];
    if (entry.fine.asked != factor) {
        lookForFine(entry, factor);
    }
    return entry.fine.image.pixels.empty() ? plain : &entry.fine.image;
}

void PictureStore::lookForFine(const Entry& entry, int factor) {
    entry.fine = {.image = {}, .asked = factor};
    PixelImage image = entry.redraw ? entry.redraw(factor) : PixelImage{};
    const int density = image.density;
    if (density > 1 && factor % density == 0 && image.width == entry.image.width * density &&
        image.height == entry.image.height * density) {
        requireWhole(image);
        entry.fine.image = std::move(image);
    }
}

Redraw PictureStore::drawnLike(std::uint64_t print) const {
    return [this, print](int factor) { return source_ ? source_(print, factor) : PixelImage{}; };
}

PictureStore::Sizes PictureStore::sizes() const noexcept {
    Sizes sizes;
    for (const Entry& entry : entries_) {
        sizes.plain += entry.image.pixels.size() * sizeof(std::uint32_t);
        sizes.fine += entry.fine.image.pixels.size() * sizeof(std::uint32_t);
    }
    return sizes;
}

} // namespace tovik::ui
