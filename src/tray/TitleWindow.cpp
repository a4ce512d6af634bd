// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TitleWindow.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/KeyCodes.h"
#include "ui/qt/SetOpacity.h"
#include "ui/Twips.h"

#include <algorithm>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace tovik::tray {

namespace {

const QColor kGround(13, 15, 32);
const QColor kWords(255, 255, 255);
constexpr double kLetterHeight = 0.55; ///< of the bar
constexpr int kMargin = 8;
constexpr int kWidest = 420; ///< of a small one

} // namespace

QRect cornerFor(QSize popup, const QRect& screen, const QRect& room, const QRect& icon) {
    bool atTop = room.top() - screen.top() > screen.bottom() - room.bottom();
    bool atLeft = QGuiApplication::isRightToLeft();
    if (screen.intersects(icon)) {
        atTop = icon.center().y() < screen.center().y();
        atLeft = icon.center().x() < screen.center().x();
    }
    QRect place(QPoint(), popup);
    place.moveTopLeft(room.topLeft() + QPoint(kMargin, kMargin));
    if (!atTop) {
        place.moveBottom(room.bottom() - kMargin);
    }
    if (!atLeft) {
        place.moveRight(room.right() - kMargin);
    }
    return place;
}

/// Past the window manager: it stays above, in its place, without a button on the task bar.
class TitleWindow::Bar final : public QWidget {
public:
    explicit Bar(const std::function<void(int)>& key)
        : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                               Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput),
          key_(key) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setWindowRole(QStringLiteral("title"));
    }

    /// How wide it is with those words on it, at that height.
    [[nodiscard]] int widthFor(const QString& words, int height) const {
        QFont letters = font();
        letters.setPixelSize(static_cast<int>(height * kLetterHeight));
        return QFontMetrics(letters).horizontalAdvance(words) + 2 * kMargin;
    }

    void setWords(const QString& words) {
        words_ = words;
        setAccessibleName(words);
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), kGround);
        QFont letters = font();
        letters.setPixelSize(static_cast<int>(height() * kLetterHeight));
        painter.setFont(letters);
        painter.setPen(kWords);
        const QRect room = rect().adjusted(kMargin, 0, -kMargin, 0);
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(words_, Qt::ElideRight, room.width()));
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (key_) {
            key_(ui::keyEventOf(*event).code);
        }
    }

private:
    const std::function<void(int)>& key_;
    QString words_;
};

TitleWindow::TitleWindow(SessionBus& bus, std::function<QScreen*()> screen,
                         std::function<QRect()> icon)
    : notice_(bus), screen_(std::move(screen)), icon_(std::move(icon)) {}

TitleWindow::~TitleWindow() = default;

void TitleWindow::show(const window::TitleBar& bar) {
    const QString words = ui::displayString(bar.text);
    if (bar.asNotification || QGuiApplication::platformName().startsWith(u"wayland")) {
        hide();
        notice_.show(words);
        return;
    }
    const QScreen* const screen = screen_();
    if (screen == nullptr) {
        return;
    }
    if (!bar_) {
        bar_ = std::make_unique<Bar>(key_);
    }
    const int height = bar.heightTwips / ui::kTwipsPerPixel;
    const QRect whole = screen->geometry();
    if (bar.small) {
        const int width = std::min({bar_->widthFor(words, height), kWidest, whole.width()});
        bar_->setGeometry(cornerFor({width, height}, whole, screen->availableGeometry(), icon_()));
    } else {
        bar_->setGeometry(whole.left(), whole.top(), whole.width(), height);
    }
    bar_->setWords(words);
    ui::SetOpacity(*bar_, bar.opacityPercent);
    bar_->show();
    bar_->raise();
}

void TitleWindow::hide() {
    if (bar_) {
        bar_->hide();
        // It may be its own key that ends it.
        bar_.release()->deleteLater();
    }
}

} // namespace tovik::tray
