// SPDX-License-Identifier: GPL-3.0-or-later
// The outline of a window, cut out of the picture of its ground. Interface thread.
#pragma once

#include "ui/cDIBSection.h"
#include "ui/cDIBSectionRegion.h"
#include "ui/PictureStore.h"
#include "window/SkinnedWindow.h"

namespace tovik::window {

/// Makes the region from a ground and gives it to the window; without a ground all stays. The
/// window outlives the region, or gives it back.
inline void cutOutline(ui::cDIBSectionRegion& region, const ui::PixelImage* ground,
                       SkinnedWindow& window) {
    ui::cDIBSection dib;
    if (ground == nullptr || !dib.CreateFromPicture(*ground)) {
        return;
    }
    region.Create(dib);
    if (ui::RegionWindow* const outline = window.shape(); outline != nullptr) {
        region.Applied(*outline, true);
    }
}

} // namespace tovik::window
