// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/QtText.h"

#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace tovik::ui {

namespace {

QFont qtFont(const FontDescription& of) {
    QFont font = QGuiApplication::font();
    if (!of.family.empty()) {
        font.setFamily(QString::fromStdString(of.family));
    }
    if (of.pixelHeight > 0) {
        font.setPixelSize(of.pixelHeight);
    }
    font.setBold(of.bold);
    return font;
}

} // namespace

int QtText::standardHeight() const {
    return QFontInfo(QGuiApplication::font()).pixelSize();
}

PictureSize QtText::measure(const FontDescription& font, std::string_view text) const {
    const QFontMetrics metrics(qtFont(font));
    return {metrics.horizontalAdvance(displayString(text)), metrics.height()};
}

void QtText::draw(PixelImage& target, const PixelBox& clip, int left, int top,
                  const FontDescription& font, const Line& line) const {
    if (target.pixels.empty()) {
        return;
    }
    QImage image(reinterpret_cast<uchar*>(target.pixels.data()), target.width, target.height,
                 QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setClipRect(QRect(clip.left, clip.top, clip.width(), clip.height()));
    painter.setFont(qtFont(font));
    painter.setPen(qtColour(line.colour));
    painter.setLayoutDirection(line.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const QString text = displayString(line.text);
    const QFontMetrics metrics = painter.fontMetrics();
    const int width = metrics.horizontalAdvance(text);
    painter.drawText(
        QRect(left, top, width + 1, metrics.height()),
        static_cast<int>(line.rightToLeft ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft) |
            Qt::TextSingleLine | Qt::TextDontClip,
        text);
    if (line.underlined) {
        const auto before =
            static_cast<qsizetype>(displayString(line.text.substr(0, *line.underlined)).size());
        const int from = metrics.horizontalAdvance(text.left(before));
        const int to = metrics.horizontalAdvance(text.left(before + 1));
        painter.fillRect(left + from, top + metrics.ascent() + 1, to - from,
                         std::max(1, metrics.lineWidth()), qtColour(line.colour));
    }
}

} // namespace tovik::ui
