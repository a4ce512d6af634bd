// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SplashWindow.h"

#include "ui/qt/SetOpacity.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>

namespace tovik::ui {

namespace {

constexpr QSize kSize(300, 200);
constexpr int kOpaquePercent = 100;
constexpr int kNamePixels = 44;
constexpr QRgb kTop = 0xFF3B3F6E;
constexpr QRgb kBottom = 0xFF1D1F3C;
constexpr QRgb kName = 0xFFFF9C00;
constexpr QRgb kFrame = 0xFF666699;

} // namespace

SplashWindow::SplashWindow(const std::string& pictureFile)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      picture_(QString::fromLocal8Bit(pictureFile.c_str())) {
    setFixedSize(kSize);
    setAttribute(Qt::WA_OpaquePaintEvent);
    SetOpacity(*this, kOpaquePercent);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    move(screen.center() - rect().center());
}

void SplashWindow::showNow() {
    show();
    repaint();
    // The window system must take notice; what the user does meanwhile waits for the player.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void SplashWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (!picture_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), picture_);
        return;
    }
    QLinearGradient ground(QPointF(0, 0), QPointF(0, height()));
    ground.setColorAt(0, QColor::fromRgb(kTop));
    ground.setColorAt(1, QColor::fromRgb(kBottom));
    painter.fillRect(rect(), ground);
    painter.setPen(QColor::fromRgb(kFrame));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    QFont font = painter.font();
    font.setPixelSize(kNamePixels);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(kName));
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Tovik"));
}

} // namespace tovik::ui
