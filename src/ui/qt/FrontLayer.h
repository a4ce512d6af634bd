// SPDX-License-Identifier: GPL-3.0-or-later
// Elements that lie over a control and let the mouse through to it. Interface thread.
#pragma once

#include "ui/ElementStore.h"
#include "ui/qt/SkinScale.h"
#include "ui/qt/WindowImage.h"

#include <QWidget>
#include <vector>

namespace tovik::ui {

/// A layer in front of a window's controls, as large as what is on it and unknown to the mouse.
class FrontLayer final : public QWidget {
public:
    /// Child of `window`; the other two outlive it. It draws at the image's factor.
    FrontLayer(QWidget& window, const ElementStore& elements, const WindowImage& image);

    /// Shows what the records say now.
    void refresh(const SkinScale& scale);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool liesOverControl(std::size_t slot) const;

    const ElementStore& elements_;
    const WindowImage& image_;
    SkinScale scale_;
    QRect box_; ///< in skin pixels
    std::vector<std::size_t> slots_;
};

} // namespace tovik::ui
