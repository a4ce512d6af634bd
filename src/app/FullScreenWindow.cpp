// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FullScreenWindow.h"

#include "sound/api/VisualOperations.h"

#include <algorithm>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace tovik::app {

/// The widget itself. What it calls may let it go, so nothing is done behind a call.
class FullScreenWindow::Sheet final : public QWidget {
public:
    Sheet(const host::Dispatcher& dispatcher, Input input, int shrink)
        : dispatcher_(dispatcher), input_(std::move(input)), shrink_(shrink) {
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        setAttribute(Qt::WA_OpaquePaintEvent);
        setCursor(Qt::BlankCursor);
        setWindowTitle(QStringLiteral("Tovik"));
        setWindowRole(QStringLiteral("visualisation"));
    }

    void show(const ui::PixelImage* image) {
        image_ = image;
        update();
    }

    void forget() {
        input_ = {};
        image_ = nullptr;
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        if (image_ == nullptr) {
            painter.fillRect(rect(), Qt::black);
            return;
        }
        const QImage shown(reinterpret_cast<const uchar*>(image_->pixels.data()), image_->width,
                           image_->height, QImage::Format_RGB32);
        painter.drawImage(rect(), shown);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) {
            call(input_.leave);
        } else {
            QWidget::keyPressEvent(event);
        }
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && input_.clicked) {
            const QPoint place = event->position().toPoint() / shrink_;
            const auto clicked = input_.clicked;
            call([clicked, place] { clicked(place.x(), place.y()); });
        }
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) {
            call(input_.leave);
        }
    }

    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        call(input_.leave);
    }

private:
    void call(const std::function<void()>& what) {
        if (const std::function<void()> kept = what; kept) {
            dispatcher_.run(kept);
        }
    }

    const host::Dispatcher& dispatcher_;
    Input input_;
    int shrink_;
    const ui::PixelImage* image_ = nullptr;
};

int FullScreenWindow::shrinkFor(QSize screen) {
    return (std::max(screen.width(), screen.height()) - 1) / sound::kMostVisualSide + 1;
}

FullScreenWindow::FullScreenWindow(const QScreen& screen, const host::Dispatcher& dispatcher,
                                   const Input& input)
    : size_(screen.size() / shrinkFor(screen.size())) {
    auto sheet = std::make_unique<Sheet>(dispatcher, input, shrinkFor(screen.size()));
    sight_ = std::make_unique<ui::WindowSight>(
        *sheet, [&dispatcher, tell = input.cameInSight] { dispatcher.run(tell); });
    sheet->setGeometry(screen.geometry());
    sheet->showFullScreen();
    sheet->activateWindow();
    sheet_ = sheet.release(); // it lets itself go later
}

FullScreenWindow::~FullScreenWindow() {
    sight_.reset();
    if (Sheet* const sheet = sheet_.data(); sheet != nullptr) {
        sheet->forget();
        sheet->hide();
        sheet->deleteLater();
    }
}

bool FullScreenWindow::visible() const {
    const Sheet* const sheet = sheet_.data();
    return sheet != nullptr && ui::WindowSight::seen(*sheet);
}

void FullScreenWindow::show(const ui::PixelImage& image) {
    if (Sheet* const sheet = sheet_.data(); sheet != nullptr) {
        sheet->show(&image);
    }
}

} // namespace tovik::app
