// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/EmbeddedIcon.h"

#include "tray/TrayPictures.h"
#include "ui/qt/DisplayText.h"

#include <QIcon>
#include <QPixmap>
#include <QWheelEvent>
#include <utility>

namespace tovik::tray {

namespace {

constexpr double kNotch = 120;

} // namespace

EmbeddedIcon::EmbeddedIcon(TrayClicks clicks) : clicks_(std::move(clicks)) {
    connect(this, &QSystemTrayIcon::activated, this,
            [this](ActivationReason reason) { clicked(reason); });
}

void EmbeddedIcon::setLook(const TrayLook& look) {
    if (look.style != style_) {
        style_ = look.style;
        QIcon pictures;
        for (const QImage& picture : trayPictures(style_)) {
            pictures.addPixmap(QPixmap::fromImage(picture));
        }
        setIcon(pictures);
    }
    setToolTip(ui::displayString(look.tooltip));
}

void EmbeddedIcon::clicked(ActivationReason reason) const {
    switch (reason) {
    case Trigger:
        clicks_.left();
        break;
    case DoubleClick:
        clicks_.leftTwice();
        break;
    case Context:
        clicks_.right();
        break;
    case MiddleClick:
        clicks_.middle();
        break;
    case Unknown:
        break;
    }
}

bool EmbeddedIcon::event(QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        clicks_.wheel(static_cast<QWheelEvent*>(event)->angleDelta().y() / kNotch);
        return true;
    }
    return QSystemTrayIcon::event(event);
}

} // namespace tovik::tray
