// SPDX-License-Identifier: GPL-3.0-or-later
// Where a visualisation is drawn, as it sees it; who owns the window implements it. Interface
// thread.
#pragma once

#include "ui/PictureStore.h"

#include <functional>

namespace tovik::vis {

class VisualArea {
public:
    virtual ~VisualArea() = default;

    /// Whether anyone can see what is drawn there.
    [[nodiscard]] virtual bool canBeSeen() const = 0;

    /// The picture that the bars of the spectrum are cut out of; null while no skin gives one.
    [[nodiscard]] virtual const ui::PixelImage* bars() const = 0;

    /// Lets `paint` change the area's picture, which has the size below, each side that many times,
    /// and keeps its pixels from one call to the next until it is cleared or its density is
    /// another.
    virtual void draw(int density, const std::function<void(ui::PixelImage&)>& paint) = 0;

    // In pixels of a picture of density 1.
    [[nodiscard]] virtual int width() const = 0;
    [[nodiscard]] virtual int height() const = 0;

    /// That of the finest picture which can be seen as it is.
    [[nodiscard]] virtual int density() const { return 1; }

    /// Nothing is shown any more.
    virtual void clear() = 0;
};

} // namespace tovik::vis
