// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a picture over a whole screen of the desktop. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/qt/WindowSight.h"
#include "window/FullScreen.h"

#include <memory>
#include <QPointer>
#include <QScreen>
#include <QWidget>

namespace tovik::app {

class FullScreenWindow final : public window::FullScreen {
public:
    /// Covers that screen. The dispatcher outlives the window.
    FullScreenWindow(const QScreen& screen, const host::Dispatcher& dispatcher, const Input& input);
    ~FullScreenWindow() override;
    FullScreenWindow(const FullScreenWindow&) = delete;
    FullScreenWindow& operator=(const FullScreenWindow&) = delete;

    /// How many pixels of a screen of that size make one of its picture: 1, but where the picture
    /// would have a longer side than a plug-in can draw.
    [[nodiscard]] static int shrinkFor(QSize screen);

    [[nodiscard]] int width() const override { return size_.width(); }

    [[nodiscard]] int height() const override { return size_.height(); }

    [[nodiscard]] bool visible() const override;
    void show(const ui::PixelImage& image) override;

private:
    class Sheet;

    QSize size_; ///< of the picture
    QPointer<Sheet> sheet_;
    std::unique_ptr<ui::WindowSight> sight_;
};

} // namespace tovik::app
