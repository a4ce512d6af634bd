// SPDX-License-Identifier: GPL-3.0-or-later
// The skin of the main window: the pictures of its elements, and the faces that its buttons show
// under the mouse. Interface thread.
#pragma once

#include "host/Paths.h"
#include "ui/PictureStore.h"
#include "window/MainBindings.h"
#include "window/SpareSkin.h"

#include <functional>

namespace tovik::window {

class MainSkin {
public:
    /// All of them outlive the object. `refreshTabs` gives the tabs the faces they have without
    /// the mouse. `fitsScreen` tells whether a window of that width and height has room.
    MainSkin(
        MainElements& elements, ui::PictureStore& pictures, const host::Paths& paths,
        std::function<void()> refreshTabs,
        std::function<bool(int, int)> fitsScreen = [](int, int) { return true; });

    /// From now on pictures that are missing come from there, as far as it has them and comfort is
    /// wanted; it outlives the object.
    void spareWith(SpareSkin& spare) { spare_ = &spare; }

    /// Gives every element its picture from the skin's folder. The first file that is missing or
    /// no picture raises its error, 481 also a window's ground that no screen has room for (one as
    /// large as the layout's always passes); what comes behind it stays without.
    void LoadMainSkin();

    /// Keeps the up faces, so that they are those of the skin. Once, after loading.
    void SaveUpPictures();

    /// Gives all buttons their up faces again, and the tabs theirs.
    void RestoreUpPictures();

    // The mouse over the transport's and the window's buttons
    // ---------------------------------------

    /// The mouse came over an element. A button among them shows its over face, and no other one
    /// does any more.
    void pointerEntered(ui::ElementAddress element);

    /// The mouse left an element, for another one or out of the window: every over face ends.
    void pointerLeft() { RestoreUpPictures(); }

    /// The mouse moved over the bare background, which ends every over face, too.
    void movedOverBackground() { RestoreUpPictures(); }

private:
    [[nodiscard]] ui::Picture pictureOf(Slot slot) const;
    void give(Slot slot, ui::Picture picture);
    void load(const Binding& binding);
    [[nodiscard]] SkinBitmap bitmapFor(const Binding& binding) const;
    [[nodiscard]] bool tooLarge(const ui::PixelImage& image) const;

    MainElements& elements_;
    ui::PictureStore& pictures_;
    const host::Paths& paths_;
    std::function<void()> refreshTabs_;
    std::function<bool(int, int)> fitsScreen_;
    SpareSkin* spare_ = nullptr;
};

} // namespace tovik::window
