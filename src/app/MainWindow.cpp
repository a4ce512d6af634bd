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
#include <utility>

namespace tovik::app {

MainWindow::MainWindow(const host::Host& host) : host_(host), mini_(host.dispatcher) {}

MainWindow::~MainWindow() {
    // Its widgets ask the controls.
    screen_.take();
}

void MainWindow::attach(frmPlayer& player) {
    auto widget = std::make_unique<ui::SkinWindow>(player.elements(), player.view().pictures,
                                                   player.input(), host_.dispatcher);
    // For a start that fails before it comes to the captions.
    widget->setCaption("Tovik");
    // The caption rotates; the name of the window does not.
    widget->setAccessibleName(QStringLiteral("Tovik"));
    // Tells it from boxes and dialogs, for rules of window managers; the caption follows the track.
    widget->setWindowRole(QStringLiteral("player"));
    controls_ = std::make_unique<MainControls>(player, *widget, host_.dispatcher);
    widget->setAccess(window::mainAccess(), player.view().access, window::rows::kAmber);
    const auto cameInSight = [this, &player] {
        host_.dispatcher.run([&player] { player.visuals().stirVisualisation(); });
    };
    screen_.give(std::move(widget), cameInSight);
    mini_.attach(player.presence().mini, cameInSight);
    mini_.firstPlace = [this] { return screen_.widget()->pos(); };
}

void MainWindow::detach() {
    mini_.detach();
    screen_.take();
    controls_.reset();
}

void MainWindow::show() {
    endSplash();
    OnScreen::show();
}

void MainWindow::showSplash() {
    splash_ = std::make_unique<ui::SplashWindow>(host_.paths.of(host::DataItem::Splash));
    splash_->showNow();
}

void MainWindow::endSplash() {
    splash_.reset();
}

std::unique_ptr<window::FullScreen> MainWindow::makeFullScreen(window::FullScreen::Input input) {
    const QScreen* const where = screen();
    return where != nullptr ? std::make_unique<FullScreenWindow>(*where, host_.dispatcher, input)
                            : nullptr;
}

void MainWindow::takeFocus() {
    controls_->takeFocus();
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
    if (screen_.widget() == nullptr) {
        return nullptr;
    }
    return std::make_unique<ui::SkinMenus>(ui::SkinMenus::Needs{
        .model = model,
        .window = messages,
        .dispatcher = host_.dispatcher,
        .onScreen = [this](const menus::MenuPlace& place) { return onScreen(place); },
        .outside = [this] { return std::exchange(asked_, std::nullopt); }});
}

/// The desktop counts in pixels of the screen; windows do in those of their scale.
void MainWindow::askedForMenu(std::optional<window::ScreenPlace> place) {
    asked_.emplace();
    if (!place) {
        return;
    }
    const QPoint told(place->left, place->top);
    asked_->place = told;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QPoint corner = screen->geometry().topLeft();
        const double scale = screen->devicePixelRatio();
        if (QRect(corner, screen->geometry().size() * scale).contains(told)) {
            asked_->place = corner + (told - corner) / scale;
        }
    }
}

QScreen* MainWindow::screen() const {
    const QWidget* const widget = mini_.shown() ? mini_.widget() : screen_.widget();
    return widget != nullptr ? widget->screen() : QGuiApplication::primaryScreen();
}

/// Of the window that is in use.
QRect MainWindow::onScreen(const menus::MenuPlace& place) const {
    if (mini_.shown()) {
        return mini_.onScreen(place);
    }
    return screen_.widget() != nullptr ? screen_.widget()->onScreen(place) : QRect();
}

bool MainWindow::rightToLeft() const {
    return QGuiApplication::isRightToLeft();
}

std::uintptr_t MainWindow::handle() const {
    return static_cast<std::uintptr_t>(screen_.widget()->winId());
}

} // namespace tovik::app
