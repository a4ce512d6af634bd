// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BuiltInPictures.h"

#include "skin/Bitmap.h"
#include "skin/PicturePrint.h"

#include <QFile>

namespace tovik::app {

std::string windowPicture(std::string_view name) {
    QFile file(QStringLiteral(":/window/%1.bmp")
                   .arg(QLatin1StringView(name.data(), static_cast<qsizetype>(name.size()))));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

ui::PixelImage finePicture(std::uint64_t print, int factor) {
    for (const int size : {3, 2}) {
        if (factor % size != 0) {
            continue;
        }
        QFile file(QStringLiteral(":/fine/%1/%2.bmp")
                       .arg(size)
                       .arg(QString::fromStdString(skin::printName(print))));
        if (file.open(QIODevice::ReadOnly)) {
            ui::PixelImage image = skin::readBitmap(file.readAll().toStdString());
            image.density = size;
            return image;
        }
    }
    return {};
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/window/icons/tovik-%1.png").arg(size));
    }
    return icon;
}

} // namespace tovik::app
