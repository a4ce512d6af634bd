// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"

#include <algorithm>
#include <QGuiApplication>
#include <QScreen>

namespace tovik::app {

class MainWindow::ListWatch final : public playlist::ListObserver {
public:
    ListWatch(playlist::stdSS& list, ui::ListWidget& widget) : list_(list), widget_(widget) {
        list_.addObserver(*this);
    }

    ~ListWatch() override { list_.removeObserver(*this); }

    ListWatch(const ListWatch&) = delete;
    ListWatch& operator=(const ListWatch&) = delete;

    /// A long read gives way to the window again and again: a list that was painted anew each time
    /// would make it wait for the painting.
    void rowsInserted(playlist::Row, playlist::Row) override { widget_.refreshSoon(); }

    void rowsRemoved(std::span<const playlist::Row>) override { widget_.refresh(); }

    void rowsCleared() override { widget_.refresh(); }

    void rowChanged(playlist::Row row) override {
        widget_.refreshRow(static_cast<std::size_t>(row) - 1);
    }

    void looksChanged(playlist::Row, playlist::Row) override { widget_.refresh(); }

private:
    playlist::stdSS& list_;
    ui::ListWidget& widget_;
};

MainWindow::MainWindow(const host::Host& host) : host_(host) {}

MainWindow::~MainWindow() = default;

void MainWindow::attach(frmPlayer& player) {
    language_ = &player.language();
    rows_ =
        std::make_unique<player::QuickListRows>(player.List1(), player.stdSS(), player.transport());
    skin_ = std::make_unique<ui::SkinWindow>(player.elements(), player.pictures(), player.input(),
                                             host_.dispatcher);
    // For a start that fails before it comes to the captions.
    skin_->setCaption("Tovik");
    // Tells it from boxes and dialogs, for rules of window managers; the caption follows the track.
    skin_->setWindowRole(QStringLiteral("player"));
    // The window's object tree owns the list.
    auto* list = new ui::ListWidget(*rows_, *rows_, host_.dispatcher);
    skin_->hostControl(ui::MainElement::List1, 0, list);
    watch_ = std::make_unique<ListWatch>(player.stdSS(), *list);
}

void MainWindow::show() {
    endSplash();
    skin_->show();
}

bool MainWindow::visible() const {
    return skin_ != nullptr && skin_->isVisible() && !skin_->isMinimized();
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

void MainWindow::takeFocus() {
    skin_->setFocus();
}

void MainWindow::showLoadPreset(player::frmLoadPreset& dialog) {
    if (!loadPreset_) {
        loadPreset_ = new LoadPresetDialog(dialog, *language_, host_.dispatcher, skin_.get());
    }
    loadPreset_->open();
}

void MainWindow::setCaption(const std::string& caption) {
    skin_->setCaption(caption);
}

void MainWindow::setTaskbarButton(bool shown) {
    skin_->setWindowFlag(Qt::Tool, !shown);
}

void MainWindow::setTopmost(bool topmost) {
    if (skin_->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost) {
        return;
    }
    const bool shown = skin_->isVisible();
    skin_->setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
    skin_->setVisible(shown);
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
