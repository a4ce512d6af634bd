// SPDX-License-Identifier: GPL-3.0-or-later
#include "Preview.h"

#include "GlyphTable.h"
#include "Palette.h"
#include "PictureSet.h"
#include "window/MainElements.h"
#include "window/PanelTable.h"

#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <QFont>
#include <QString>

namespace tovik::skinart {

namespace {

using N = window::MainElement;
using window::Show;

constexpr int kOpenList = 6;

using Key = std::pair<N, std::size_t>;

std::map<Key, Drawing> pictures() {
    std::map<Key, Drawing> all;
    for (const Drawings& set : {skinDrawings(), windowDrawings()}) {
        for (const Drawing& drawing : set) {
            all[{drawing.spot.name, drawing.spot.index}] = drawing;
        }
    }
    const auto copy = [&all](Key from, Key to) { all[to] = all.at(from); };
    constexpr std::array<std::size_t, 6> kTime{0, 0, 3, 0, 4, 1};
    for (const std::size_t slot : {1U, 2U, 4U, 5U}) {
        copy({N::Digit, kTime.at(slot)}, {N::timed, slot});
    }
    for (std::size_t lamp = 0; lamp < 9; ++lamp) {
        const N source = lamp == 4 ? N::balcnt : lamp == 5 || lamp == 6 ? N::baron : N::baroff;
        copy({source, 0}, {N::balbar, lamp});
    }
    for (std::size_t band = 1; band < 10; ++band) {
        copy({N::Picture6, 0}, {N::Picture6, band});
    }
    copy({N::Image6, 4}, {N::ShuffleBT, 0});
    copy({N::tmp, 8}, {N::pauseup, 0});
    copy({N::qpl_exp, 0}, {N::qpl_but, 0});
    return all;
}

bool showsOn(Show show) {
    switch (show) {
    case Show::yes:
    case Show::withShuffle:
    case Show::withoutCrossfade:
    case Show::withoutLoop:
    case Show::withSkip:
    case Show::withEqualizer:
    case Show::withoutRadio:
    case Show::whileFolded:
    case Show::whileNotRecording:
        return true;
    default:
        return false;
    }
}

/// Whether an element is visible on a panel; what is in no row keeps the layout's answer.
bool visibleOn(N name, std::size_t index, bool normally, int panel) {
    bool visible = normally;
    for (const window::PanelRow& row : window::panelTable()) {
        const std::size_t end = row.count == 0 ? 1000 : row.first + row.count;
        if (row.name == name && index >= row.first && index < end) {
            visible = showsOn(row.on.at(static_cast<std::size_t>(panel - 1)));
        }
    }
    return visible;
}

void paintWords(QPainter& painter, const ui::Element& element) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(static_cast<int>(element.textHeight));
    painter.setFont(font);
    painter.setPen(
        QColor(element.textColour.red, element.textColour.green, element.textColour.blue));
    painter.drawText(QRectF(element.left, element.top, element.width, element.height),
                     Qt::AlignLeft | Qt::AlignVCenter, QString::fromUtf8(element.caption.c_str()));
}

void paintSpectrum(QPainter& painter, const ui::Box& box, const std::map<Key, Drawing>& all) {
    const QImage tile = rendered(all.at({N::Picture2, 0}), 1);
    painter.fillRect(QRectF(box.left, box.top, box.width, box.height), Qt::black);
    for (int bar = 0; bar < 33; ++bar) {
        const double level = 0.25 + 0.7 * std::abs(std::sin(bar * 0.7)) * (1 - bar / 50.0);
        const int top = static_cast<int>(std::lround((1 - level) * box.height));
        for (int y = top; y < static_cast<int>(box.height); ++y) {
            for (int x = 1; x < 5; ++x) {
                painter.fillRect(QRectF(box.left + bar * 5 + x, box.top + y, 1, 1),
                                 tile.pixelColor(x, y));
            }
        }
        painter.fillRect(QRectF(box.left + bar * 5 + 1, box.top + std::max(0, top - 3), 4, 1),
                         Qt::white);
    }
}

void paintList(QPainter& painter, const ui::Element& element) {
    const QRectF box(element.left, element.top, element.width, element.height);
    const ui::Colour back = element.backColour.value_or(ui::Colour{});
    painter.fillRect(box, QColor(back.red, back.green, back.blue));
    ui::Element row = element;
    row.left += 4;
    row.height = 15;
    row.textColour = element.textColour;
    for (int number = 1; row.top + 15 <= box.bottom() && number < 10; ++number) {
        row.caption = std::to_string(number) + ".  A song of the list";
        paintWords(painter, row);
        row.top += 15;
    }
}

struct Frame {
    QPainter& painter;
    const std::map<Key, Drawing>& all;
    int scale;
    int panel;
};

/// As the window shows it: what has the key colour is transparent.
QImage withoutKey(const QImage& picture) {
    QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == keyPixel()) {
                image.setPixel(x, y, kNothing);
            }
        }
    }
    return image;
}

void paintPicture(Frame& frame, const ui::Element& element, const Drawing& drawing) {
    const QImage image = withoutKey(rendered(drawing, frame.scale));
    const double height = std::min<double>(drawing.size.height(), element.height);
    frame.painter.drawImage(QRectF(std::round(element.left * frame.scale) / frame.scale,
                                   element.top, drawing.size.width(), height),
                            image, QRectF(0, 0, image.width(), height * frame.scale));
}

void paintElement(Frame& frame, N name, std::size_t index, ui::Element element) {
    const bool open = frame.panel == kOpenList;
    if (open &&
        (name == N::infoWin || name == N::fxWin || name == N::lbltag || name == N::lblinfo)) {
        return;
    }
    const bool heading = name == N::lblPos;
    if ((open && heading && index == 3) ||
        !visibleOn(name, index, element.visible, open ? 1 : frame.panel)) {
        return;
    }
    if (open && name == N::List1) {
        element.top = 60;
        element.width = 163;
        element.height = 202;
    }
    if (open && (name == N::qpl_but || (heading && index == 4))) {
        element.top = 46;
    }
    if (name == N::volbarIMG) {
        element.height = 15;
    }
    if (name == N::track) {
        element.left += 90;
    }
    if (name == N::Picture1) {
        paintSpectrum(frame.painter, element.box(), frame.all);
        return;
    }
    if (name == N::eq_sld) {
        element.top += 60 - 24 * std::sin(static_cast<double>(index));
        paintPicture(frame, element, frame.all.at({N::Picture7, 0}));
        return;
    }
    const QPoint corner(static_cast<int>(element.left) + 1, static_cast<int>(element.top) + 3);
    switch (name) {
    case N::songname:
        paintGlyphText(frame.painter, corner, "tovik - a song of bars (03:41)", kGlowText);
        return;
    case N::mono_img:
        paintGlyphText(frame.painter, corner, "mono", kGlowDim);
        return;
    case N::Stereo_img:
        paintGlyphText(frame.painter, corner, "stereo", kGlowText);
        return;
    case N::musicinfo_img:
        paintGlyphText(frame.painter, corner, "192 kbps 44 khz", kGlowText);
        return;
    case N::shwchange:
        paintGlyphText(frame.painter, corner, index == 0 ? "volume 62%" : "center", kGlowText);
        return;
    default:
        break;
    }
    const auto picture = frame.all.find({name, index});
    if (picture != frame.all.end()) {
        paintPicture(frame, element, picture->second);
    } else if (element.kind == ui::ElementKind::Control) {
        paintList(frame.painter, element);
    } else if (!element.caption.empty()) {
        paintWords(frame.painter, element);
    } else if (element.backColour) {
        const ui::Colour back = *element.backColour;
        frame.painter.fillRect(QRectF(element.left, element.top, element.width, element.height),
                               QColor(back.red, back.green, back.blue));
    }
}

} // namespace

QImage previewOf(int panel, int scale) {
    const std::map<Key, Drawing> all = pictures();
    const QRectF window = rectOf({N::mainIMG});
    QImage image(window.size().toSize() * scale, QImage::Format_RGB32);
    image.fill(QColor(150, 160, 170));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing);
    painter.scale(scale, scale);
    Frame frame{painter, all, scale, panel};
    for (const auto& place : window::mainLayout()) {
        for (std::size_t offset = 0; offset < place.count; ++offset) {
            paintElement(frame, place.name, place.first + offset, ui::elementAt(place, offset));
        }
    }
    return image;
}

} // namespace tovik::skinart
