// SPDX-License-Identifier: GPL-3.0-or-later
// The skin of the mini window: 17 files of its own, pictures that the main window has already, and
// those of the window itself. Interface thread.
#pragma once

#include "host/Paths.h"
#include "ui/PictureStore.h"
#include "window/MiniElements.h"
#include "window/SkinBitmaps.h"
#include "window/SpareSkin.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::window {

/// A file of the skin's folder, without ".bmp", or a picture of the window itself, and the element
/// that gets it; of `sized` ones it takes the size, too.
struct MiniPicture {
    std::string_view name;
    MiniElement element{};
    std::size_t index = 0;
    bool sized = false;
};

/// The files, in the order in which they are read.
[[nodiscard]] std::span<const MiniPicture> miniBindings() noexcept;

/// The files of a skin, those of both windows, with their ending.
[[nodiscard]] std::vector<std::string> skinFiles();

/// What no file of a skin gives a picture.
[[nodiscard]] std::span<const MiniPicture> miniWindowPictures() noexcept;

class MiniSkin {
public:
    /// All of them outlive the object. The pictures are those of the main window, too. `bytesOf`
    /// answers with the bitmap of a picture of the window; an element whose bitmap is empty keeps
    /// its plain look.
    MiniSkin(MiniElements& elements, const MainElements& main, ui::PictureStore& pictures,
             const host::Paths& paths, std::function<std::string(std::string_view)> bytesOf)
        : elements_(elements), main_(main), pictures_(pictures), paths_(paths),
          bytesOf_(std::move(bytesOf)) {}

    /// From now on pictures that are missing come from there; see `MainSkin::spareWith`.
    void spareWith(SpareSkin& spare) { spare_ = &spare; }

    /// Gives every element its picture, each time anew from the files: the first one that is
    /// missing or no picture raises its error.
    void LoadMiniSkin();

    /// `Image1` shows its own faces again.
    void RestoreButtons();

    /// Of `Image1` number `index` the face under the mouse is shown, and of no other.
    void showOver(std::size_t index);

private:
    void load(const MiniPicture& row);
    void give(const MiniPicture& row, SkinBitmap bitmap);
    void takeWindowPictures();
    void takePicturesOfMain();
    void keepFaces();
    void show(std::size_t index, ui::Picture picture);

    MiniElements& elements_;
    const MainElements& main_;
    ui::PictureStore& pictures_;
    const host::Paths& paths_;
    std::function<std::string(std::string_view)> bytesOf_;
    SpareSkin* spare_ = nullptr;
    std::map<std::string_view, ui::Picture> known_; ///< by their names, so that they are replaced
};

} // namespace tovik::window
