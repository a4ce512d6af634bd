// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/MenuPictures.h"

#include "base/Text.h"
#include "ui/qt/DisplayText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <QImage>
#include <QIODevice>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

namespace tovik::ui {

namespace {

constexpr int kGrid = 16; ///< units a side of a drawing

/// Words of a drawing, told apart by blanks: "M x y" and "L x y" begin and go on with an outline,
/// "Z" closes it, "O x y radius" is a circle, "A x y radius from sweep" a part of one in degrees.
/// What comes after "f" is filled, what comes after "s" is a line.
struct Drawing {
    std::string_view key;
    const char* words;
};

constexpr auto kImages = std::to_array<Drawing>({
    {"help", "s O 8 8 6.5 f O 8 4.8 1.1 M 6.9 7 L 9.1 7 L 9.1 12.2 L 6.9 12.2 Z"},
    {"main", "s M 2 3 L 14 3 L 14 13 L 2 13 Z f M 2 3 L 14 3 L 14 6 L 2 6 Z"},
    {"play", "f M 4 2.5 L 13.5 8 L 4 13.5 Z"},
    {"eq", "s M 4 2 L 4 14 M 8 2 L 8 14 M 12 2 L 12 14 "
           "f M 2 9 L 6 9 L 6 11.4 L 2 11.4 Z M 6 4 L 10 4 L 10 6.4 L 6 6.4 Z "
           "M 10 7 L 14 7 L 14 9.4 L 10 9.4 Z"},
    {"Playlist", "s M 6 4 L 14 4 M 6 8 L 14 8 M 6 12 L 14 12 f O 3 4 1.2 O 3 8 1.2 O 3 12 1.2"},
    {"Rip", "s O 7 7 5.3 f O 7 7 1.6 M 10.5 9 L 13.5 9 L 13.5 11.5 L 15.4 11.5 L 12 15.4 "
            "L 8.6 11.5 L 10.5 11.5 Z"},
    {"radio", "f O 8 6 1.7 M 7.2 7 L 8.8 7 L 10 14.5 L 6 14.5 Z "
              "s A 8 6 4 135 90 A 8 6 4 -45 90 A 8 6 6.6 135 90 A 8 6 6.6 -45 90"},
    {"Pre", "s O 8 8 3.6 M 8 1.4 L 8 4 M 8 12 L 8 14.6 M 1.4 8 L 4 8 M 12 8 L 14.6 8 "
            "M 3.3 3.3 L 5.2 5.2 M 10.8 10.8 L 12.7 12.7 M 3.3 12.7 L 5.2 10.8 "
            "M 10.8 5.2 L 12.7 3.3"},
    {"options", "s M 2 4 L 14 4 M 2 8 L 14 8 M 2 12 L 14 12 f O 10.5 4 2 O 5 8 2 O 9 12 2"},
    {"delete", "s A 8 8.6 5.4 125 290 M 8 1.6 L 8 7.6"},
    {"ViewOpen", "s M 4 1.7 L 9.4 1.7 L 12.6 5 L 12.6 14.3 L 4 14.3 Z M 9.2 2 L 9.2 5.4 L 12.4 5.4 "
                 "f M 6.4 7.4 L 11 9.9 L 6.4 12.4 Z"},
    {"Folder", "f M 1.6 3.4 L 6.3 3.4 L 7.8 5.2 L 14.4 5.2 L 14.4 13.2 L 1.6 13.2 Z"},
    {"location", "s O 8 8 6.2 M 1.8 8 L 14.2 8 M 8 1.8 L 5.6 5 L 5.1 8 L 5.6 11 L 8 14.2 "
                 "L 10.4 11 L 10.9 8 L 10.4 5 Z"},
    {"playback", "f M 2 3.4 L 9 8 L 2 12.6 Z M 10 3.4 L 11.6 3.4 L 11.6 12.6 L 10 12.6 Z "
                 "M 12.8 3.4 L 14.4 3.4 L 14.4 12.6 L 12.8 12.6 Z"},
    {"cdaudio", "s O 8 8 6.3 O 8 8 2 A 8 8 4.2 20 60 A 8 8 4.2 200 60"},
});

constexpr auto kMarks = std::to_array<Drawing>({
    {"check", "s M 3.2 8.4 L 6.8 12 L 13 4.4"},
    {"radio", "f O 8 8 3.2"},
    {"arrow", "f M 4 1 L 12.5 8 L 4 15 Z"},
    {"leftward arrow", "f M 12 1 L 3.5 8 L 12 15 Z"},
});

constexpr double kLine = 1.5;
constexpr double kMarkLine = 2.2;

class Pen {
public:
    Pen(QPainter& painter, double line) : painter_(painter), line_(line) {}

    void draw(const char* words) {
        QString text = QString::fromLatin1(words);
        QTextStream stream(&text, QIODevice::ReadOnly);
        for (QString word; !stream.atEnd();) {
            stream >> word >> Qt::ws;
            if (word == QLatin1String("f") || word == QLatin1String("s")) {
                finish();
                filled_ = word == QLatin1String("f");
                continue;
            }
            add(word, stream);
        }
        finish();
    }

private:
    void add(const QString& word, QTextStream& stream) {
        if (word == QLatin1String("Z")) {
            path_.closeSubpath();
            return;
        }
        double x = 0;
        double y = 0;
        stream >> x >> y >> Qt::ws;
        if (word == QLatin1String("M")) {
            path_.moveTo(x, y);
        } else if (word == QLatin1String("L")) {
            path_.lineTo(x, y);
        } else {
            double radius = 0;
            stream >> radius >> Qt::ws;
            const QRectF box(x - radius, y - radius, 2 * radius, 2 * radius);
            if (word == QLatin1String("O")) {
                path_.addEllipse(box);
                return;
            }
            double from = 0;
            double sweep = 0;
            stream >> from >> sweep >> Qt::ws;
            path_.arcMoveTo(box, from);
            path_.arcTo(box, from, sweep);
        }
    }

    void finish() {
        if (filled_) {
            painter_.fillPath(path_, painter_.brush());
        } else {
            painter_.strokePath(
                path_, QPen(painter_.brush(), line_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        }
        path_ = {};
    }

    QPainter& painter_;
    double line_;
    QPainterPath path_;
    bool filled_ = false;
};

PixelImage drawn(const Drawing& drawing, int side, Colour ink, double line) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(double{1} * side / kGrid, double{1} * side / kGrid);
        painter.setBrush(qtColour(ink));
        Pen(painter, line).draw(drawing.words);
    }
    PixelImage result{side, side, {}};
    result.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    // Rows of 32-bit pixels have no padding.
    std::memcpy(result.pixels.data(), image.constBits(),
                result.pixels.size() * sizeof(std::uint32_t));
    return result;
}

} // namespace

int MenuPictures::indexOf(std::string_view key) const {
    const auto* const found = std::ranges::find_if(kImages, [&](const Drawing& drawing) {
        return base::equalsIgnoringCase(drawing.key, key);
    });
    return found == kImages.end() ? -1 : static_cast<int>(found - kImages.begin());
}

PixelImage MenuPictures::image(int index, int side, Colour ink) const {
    if (index < 0 || index >= static_cast<int>(kImages.size()) || side <= 0) {
        return {};
    }
    return drawn(kImages.at(static_cast<std::size_t>(index)), side, ink, kLine);
}

PixelImage MenuPictures::mark(menus::MenuMark mark, int side, Colour ink) const {
    return side > 0 ? drawn(kMarks.at(static_cast<std::size_t>(mark)), side, ink, kMarkLine)
                    : PixelImage{};
}

} // namespace tovik::ui
