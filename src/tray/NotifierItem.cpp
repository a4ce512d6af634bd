// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/NotifierItem.h"

#include "tray/TrayPictures.h"
#include "ui/qt/DisplayText.h"

#include <cstdlib>
#include <utility>

namespace tovik::tray {

namespace {

constexpr double kNotch = 120;
constexpr int kSingleNotches = 12; ///< nobody turns as little as a tenth of a notch

void call(const std::function<void()>& who) {
    if (who) {
        who();
    }
}

} // namespace

double notchesOf(int delta) {
    return std::abs(delta) < kSingleNotches ? delta : delta / kNotch;
}

NotifierItem::NotifierItem(QObject& object, TrayClicks clicks)
    : QDBusAbstractAdaptor(&object), clicks_(std::move(clicks)) {}

void NotifierItem::setLook(const TrayLook& look) {
    if (look.style != style_) {
        style_ = look.style;
        icon_.clear();
        for (const QImage& picture : trayPictures(style_)) {
            icon_.append(notifierPixmap(picture));
        }
        emit NewIcon();
    }
    if (const QString words = ui::displayString(look.tooltip); words != words_) {
        words_ = words;
        emit NewToolTip();
    }
}

std::string NotifierItem::takeToken() {
    return std::exchange(token_, {}).toStdString();
}

std::optional<window::ScreenPlace> NotifierItem::takePlace() {
    const auto place = std::exchange(place_, std::nullopt);
    return place == window::ScreenPlace() ? std::nullopt : place;
}

NotifierToolTip NotifierItem::toolTip() const {
    return {.iconName = {}, .icon = {}, .title = words_, .text = {}};
}

void NotifierItem::Activate(int /*x*/, int /*y*/) const {
    call(clicks_.left);
}

void NotifierItem::SecondaryActivate(int /*x*/, int /*y*/) const {
    call(clicks_.middle);
}

void NotifierItem::ContextMenu(int x, int y) {
    place_ = {.left = x, .top = y};
    call(clicks_.right);
}

void NotifierItem::Scroll(int delta, const QString& orientation) const {
    if (clicks_.wheel && orientation.compare(u"vertical", Qt::CaseInsensitive) == 0) {
        clicks_.wheel(notchesOf(delta));
    }
}

void NotifierItem::ProvideXdgActivationToken(const QString& token) {
    token_ = token;
}

} // namespace tovik::tray
