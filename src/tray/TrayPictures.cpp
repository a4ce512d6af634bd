// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayPictures.h"

#include <QString>
#include <utility>

namespace tovik::tray {

std::vector<QImage> trayPictures(int style) {
    std::vector<QImage> sizes;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        QImage drawn(QStringLiteral(":/window/icons/tray%1-%2.png").arg(style).arg(side));
        if (!drawn.isNull()) {
            sizes.push_back(std::move(drawn));
        }
    }
    return sizes;
}

} // namespace tovik::tray
