// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainSkin.h"

#include "base/ErrorPlace.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace tovik::window {

namespace {

/// The button that the element is one of the two faces of; null for none.
const ButtonFace* buttonOf(ui::ElementAddress element) {
    const auto name = element.as<MainElement>();
    const auto faces = buttonFaces();
    const auto found = std::ranges::find_if(
        faces, [name](const ButtonFace& face) { return face.up == name || face.down == name; });
    return found == faces.end() ? nullptr : &*found;
}

} // namespace

MainSkin::MainSkin(MainElements& elements, ui::PictureStore& pictures, const host::Paths& paths,
                   std::function<void()> refreshTabs, std::function<bool(int, int)> fitsScreen)
    : elements_(elements), pictures_(pictures), paths_(paths), refreshTabs_(std::move(refreshTabs)),
      fitsScreen_(std::move(fitsScreen)) {}

void MainSkin::LoadMainSkin() {
    for (const Binding& binding : mainBindings()) {
        if (binding.file.empty()) {
            give(binding.to, pictureOf(binding.from));
        } else {
            load(binding);
        }
    }
}

void MainSkin::SaveUpPictures() {
    for (const ButtonFace& face : buttonFaces()) {
        give(face.saved, pictureOf({face.up}));
    }
    for (const KeptFace& kept : keptFaces()) {
        give(kept.saved, pictureOf({kept.element}));
    }
}

void MainSkin::RestoreUpPictures() {
    for (const ButtonFace& face : buttonFaces()) {
        give({face.up}, pictureOf(face.saved));
    }
    refreshTabs_();
}

void MainSkin::pointerEntered(ui::ElementAddress element) {
    if (const ButtonFace* face = buttonOf(element)) {
        RestoreUpPictures();
        give({face->up}, pictureOf(face->over));
    }
}

ui::Picture MainSkin::pictureOf(Slot slot) const {
    return elements_.get(slot.name, slot.index).picture;
}

void MainSkin::give(Slot slot, ui::Picture picture) {
    // The mouse comes here at every move: a write that changes nothing would wake the window.
    if (pictureOf(slot) != picture) {
        elements_.touch(slot.name, slot.index).picture = picture;
    }
}

bool MainSkin::tooLarge(const ui::PixelImage& image) const {
    const ui::Element& ground = elements_.get(MainElement::mainIMG);
    return (image.width > ground.width || image.height > ground.height) &&
           !fitsScreen_(image.width, image.height);
}

SkinBitmap MainSkin::bitmapFor(const Binding& binding) const {
    SkinBitmap bitmap = loadSkinBitmap(paths_, binding.file);
    if (binding.to.name == MainElement::mainIMG && tooLarge(bitmap.image)) {
        throw base::withPlace(base::RuntimeError(base::ErrorNumber::InvalidPicture),
                              skinBitmapPath(paths_, binding.file));
    }
    return bitmap;
}

void MainSkin::load(const Binding& binding) {
    std::optional<SkinBitmap> bitmap;
    try {
        bitmap = bitmapFor(binding);
    } catch (const base::RuntimeError& error) {
        if (spare_ == nullptr) {
            throw;
        }
        bitmap = spare_->insteadOf(error, binding.file);
    }
    if (!bitmap) {
        return;
    }
    auto& [image, print] = *bitmap;
    ui::Element& element = elements_.touch(binding.to.name, binding.to.index);
    if (binding.takesSize) {
        element.width = image.width;
        element.height = image.height;
    }
    element.picture = pictures_.add(std::move(image), pictures_.drawnLike(print));
}

} // namespace tovik::window
