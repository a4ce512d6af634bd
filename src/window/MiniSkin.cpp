// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniSkin.h"

#include "skin/Bitmap.h"
#include "skin/PicturePrint.h"
#include "window/MainBindings.h"

#include <array>
#include <utility>

namespace tovik::window {

namespace {

using N = MiniElement;

constexpr std::size_t kCorners = 3;

constexpr auto kBindings = std::to_array<MiniPicture>({
    {"minmode_main", N::picBackground, 0, true},
    {"minmode_pre", N::Image4, 0, true},
    {"minmode_play", N::Image4, 1, true},
    {"minmode_pause", N::Image4, 2, true},
    {"minmode_stop", N::Image4, 3, true},
    {"minmode_next", N::Image4, 4, true},
    {"minmode_open", N::Image4, 5, true},
    {"minmode_0", N::Digit, 0},
    {"minmode_1", N::Digit, 1},
    {"minmode_2", N::Digit, 2},
    {"minmode_3", N::Digit, 3},
    {"minmode_4", N::Digit, 4},
    {"minmode_5", N::Digit, 5},
    {"minmode_6", N::Digit, 6},
    {"minmode_7", N::Digit, 7},
    {"minmode_8", N::Digit, 8},
    {"minmode_9", N::Digit, 9},
});

constexpr auto kOwn = std::to_array<MiniPicture>({
    {"mini_restore", N::Image1, 0},
    {"mini_hide", N::Image1, 1},
    {"mini_close", N::Image1, 2},
    {"mini_restore_over", N::Image2, 0},
    {"mini_hide_over", N::Image2, 1},
    {"mini_close_over", N::Image2, 2},
    {"mini_dash", N::timed, 0},
    {"mini_colon", N::timed, 3},
    {"mini_posbar", N::posbar},
    {"mini_track", N::track},
    {"mini_thumb", N::Picture2},
    {"mini_volbar", N::Picture3},
});

} // namespace

std::span<const MiniPicture> miniBindings() noexcept {
    return kBindings;
}

std::vector<std::string> skinFiles() {
    constexpr const char* kEnding = ".bmp";
    std::vector<std::string> files;
    for (const Binding& binding : mainBindings()) {
        if (!binding.file.empty()) {
            files.push_back(std::string(binding.file) + kEnding);
        }
    }
    for (const MiniPicture& row : kBindings) {
        files.push_back(std::string(row.name) + kEnding);
    }
    return files;
}

std::span<const MiniPicture> miniWindowPictures() noexcept {
    return kOwn;
}

void MiniSkin::LoadMiniSkin() {
    for (const MiniPicture& row : kBindings) {
        load(row);
    }
    takeWindowPictures();
    takePicturesOfMain();
    keepFaces();
}

void MiniSkin::load(const MiniPicture& row) {
    try {
        give(row, loadSkinBitmap(paths_, row.name));
    } catch (const base::RuntimeError& error) {
        if (spare_ == nullptr) {
            throw;
        }
        if (auto bitmap = spare_->insteadOf(error, row.name)) {
            give(row, *std::move(bitmap));
        }
    }
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): its parts are moved
void MiniSkin::give(const MiniPicture& row, SkinBitmap bitmap) {
    auto& [image, print] = bitmap;
    ui::Element& element = elements_.touch(row.element, row.index);
    if (row.sized) {
        element.width = image.width;
        element.height = image.height;
    }
    const auto [known, isNew] = known_.try_emplace(row.name);
    known->second =
        isNew ? pictures_.add(std::move(image), pictures_.drawnLike(print))
              : pictures_.replace(known->second, std::move(image), pictures_.drawnLike(print));
    element.picture = known->second;
}

/// They are part of the program: once is enough.
void MiniSkin::takeWindowPictures() {
    for (const MiniPicture& row : kOwn) {
        if (known_.contains(row.name)) {
            continue;
        }
        const std::string bytes = bytesOf_ ? bytesOf_(row.name) : std::string();
        if (!bytes.empty()) {
            give(row, {skin::readBitmap(bytes), skin::picturePrint(row.name, bytes)});
        }
    }
}

void MiniSkin::takePicturesOfMain() {
    for (const MiniTwin& twin : miniTwins()) {
        if (twin.picture) {
            elements_.touch(twin.mini, twin.miniIndex).picture =
                main_.get(twin.main, twin.mainIndex).picture;
        }
    }
    elements_.touch(N::songname2).picture = main_.get(MainElement::songname2).picture;
    for (const std::size_t zero : {1U, 2U, 4U, 5U}) {
        elements_.touch(N::timed, zero).picture = elements_.get(N::Digit).picture;
    }
}

/// The faces of `Image1` as they were loaded are those that it gets back.
void MiniSkin::keepFaces() {
    for (std::size_t i = 0; i < kCorners; ++i) {
        const auto own = known_.find(kOwn.at(i).name);
        elements_.touch(N::tmp, i).picture = own == known_.end() ? ui::Picture() : own->second;
    }
    RestoreButtons();
}

void MiniSkin::RestoreButtons() {
    for (std::size_t i = 0; i < kCorners; ++i) {
        show(i, elements_.get(N::tmp, i).picture);
    }
}

void MiniSkin::showOver(std::size_t index) {
    RestoreButtons();
    show(index, elements_.get(N::Image2, index).picture);
}

void MiniSkin::show(std::size_t index, ui::Picture picture) {
    // The mouse comes here at every move: a write that changes nothing would wake the window.
    if (elements_.get(N::Image1, index).picture != picture) {
        elements_.touch(N::Image1, index).picture = picture;
    }
}

} // namespace tovik::window
