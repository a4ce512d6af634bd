// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"

#include "app/FullScreenWindow.h"
#include "ui/qt/SkinMenu.h"
#include "ui/qt/SystemColour.h"
#include "window/MainAccess.h"
#include "window/MainRows.h"

#include <algorithm>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace tovik::app {

MainWindow::MainWindow(const host::Host& host) : host_(host) {}

MainWindow::~MainWindow() = default;

void MainWindow::attach(frmPlayer& player) {
    skin_ = std::make_unique<ui::SkinWindow>(player.elements(), player.view().pictures,
                                             player.input(), host_.dispatcher);
    // For a start that fails before it comes to the captions.
    skin_->setCaption("Tovik");
    // Tells it from boxes and dialogs, for rules of window managers; the caption follows the track.
    // The caption rotates; the name of the window does not.
    skin_->setAccessibleName(QStringLiteral("Tovik"));
    skin_->setWindowRole(QStringLiteral("player"));
    controls_ = std::make_unique<MainControls>(player, *skin_, host_.dispatcher);
    skin_->setAccess(window::mainAccess(), player.view().access, window::rows::kAmber);
    sight_ = std::make_unique<ui::WindowSight>(*skin_, [this, &player] {
        host_.dispatcher.run([&player] { player.visuals().stirVisualisation(); });
    });
}

void MainWindow::detach() {
    sight_.reset();
    skin_.reset();
    controls_.reset();
}

void MainWindow::show() {
    endSplash();
    skin_->show();
}

bool MainWindow::visible() const {
    return skin_ != nullptr && ui::WindowSight::seen(*skin_);
}

void MainWindow::showSplash() {
    splash_ = std::make_unique<ui::SplashWindow>(host_.paths.of(host::DataItem::Splash));
    splash_->showNow();
}

void MainWindow::endSplash() {
    splash_.reset();
}

void MainWindow::beginDrag() {
    skin_->beginDrag();
}

void MainWindow::hide() {
    skin_->hide();
}

void MainWindow::minimise() {
    skin_->showMinimized();
}

void MainWindow::bringToFront(const std::string& token) {
    // Where it finds it, a Wayland desktop's part of Qt takes it from there.
    if (!token.empty() && QGuiApplication::platformName().startsWith(u"wayland")) {
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
    }
    skin_->setWindowState(skin_->windowState() & ~Qt::WindowMinimized);
    skin_->show();
    skin_->raise();
    skin_->activateWindow();
}

std::unique_ptr<window::FullScreen> MainWindow::makeFullScreen(window::FullScreen::Input input) {
    return std::make_unique<FullScreenWindow>(*skin_, host_.dispatcher, input);
}

void MainWindow::takeFocus() {
    controls_->takeFocus();
}

void MainWindow::setCaption(const std::string& caption) {
    skin_->setCaption(caption);
}

void MainWindow::setTaskbarButton(bool shown) {
    if ((skin_->windowType() == Qt::Tool) == !shown) {
        return;
    }
    // Changing the kind of a window takes it off the screen.
    const bool visible = skin_->isVisible();
    skin_->setWindowFlag(Qt::Tool, !shown);
    skin_->setVisible(visible);
}

void MainWindow::setTopmost(bool topmost) {
    if (skin_->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost) {
        return;
    }
    const Qt::WindowFlags flags = skin_->windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost);
    if (skin_->windowHandle() == nullptr) {
        skin_->setWindowFlags(flags);
        return;
    }
    // The widget would take itself off the screen for it; the window system need not.
    skin_->overrideWindowFlags(flags);
    skin_->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
}

bool MainWindow::fitsScreen(int width, int height) const {
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::ranges::any_of(screens, [width, height](const QScreen* screen) {
        return screen->size().width() >= width && screen->size().height() >= height;
    });
}

std::optional<ui::Colour> MainWindow::systemColour(int number) const {
    return ui::systemColour(number);
}

std::unique_ptr<menus::MenuFacility> MainWindow::makeMenus(const menus::cMenus& model,
                                                           ui::MessageWindow& messages) {
    if (!skin_) {
        return nullptr;
    }
    return std::make_unique<ui::SkinMenus>(
        ui::SkinMenus::Needs{.model = model,
                             .window = messages,
                             .dispatcher = host_.dispatcher,
                             .onScreen = [this](const menus::MenuPlace& place) {
                                 return skin_ ? skin_->onScreen(place) : QRect();
                             }});
}

bool MainWindow::rightToLeft() const {
    return QGuiApplication::isRightToLeft();
}

std::uintptr_t MainWindow::handle() const {
    return static_cast<std::uintptr_t>(skin_->winId());
}

void MainWindow::moveTo(int left, int top) {
    // A screen that was there at the last end may be gone: keep the whole window on one that is.
    const QScreen* screen = QGuiApplication::screenAt(QPoint(left, top));
    const QRect room =
        (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    const auto within = [](int value, int first, int last) {
        return std::clamp(value, first, std::max(first, last));
    };
    skin_->move(within(left, room.left(), room.right() - skin_->width()),
                within(top, room.top(), room.bottom() - skin_->height()));
}

int MainWindow::left() const {
    return skin_->x();
}

int MainWindow::top() const {
    return skin_->y();
}

} // namespace tovik::app
