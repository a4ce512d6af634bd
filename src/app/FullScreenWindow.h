// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a picture over a whole screen of the desktop. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/qt/WindowSight.h"
#include "window/FullScreen.h"

#include <memory>
#include <QPointer>
#include <QWidget>

namespace tovik::app {

class FullScreenWindow final : public window::FullScreen {
public:
    /// Covers the screen on which `beside` is. The dispatcher outlives the window.
    FullScreenWindow(const QWidget& beside, const host::Dispatcher& dispatcher, const Input& input);
    ~FullScreenWindow() override;
    FullScreenWindow(const FullScreenWindow&) = delete;
    FullScreenWindow& operator=(const FullScreenWindow&) = delete;

    [[nodiscard]] int width() const override { return size_.width(); }

    [[nodiscard]] int height() const override { return size_.height(); }

    [[nodiscard]] bool visible() const override;
    void show(const ui::PixelImage& image) override;

private:
    class Sheet;

    QSize size_;
    QPointer<Sheet> sheet_;
    std::unique_ptr<ui::WindowSight> sight_;
};

} // namespace tovik::app
