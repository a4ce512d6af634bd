// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the skin and of the window, for the tests of their drawings. One thread.
#pragma once

#include "PictureSet.h"
#include "ui/KeyColour.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>

namespace tovik::skinart {

inline constexpr std::array kScales{1, 2};

/// All pictures by name, rendered once at each scale.
inline const std::map<std::string, QImage>& pictures(int scale) {
    static const auto render = [](int at) {
        std::map<std::string, QImage> all;
        for (const Drawings& set : {skinDrawings(), windowDrawings()}) {
            for (const Drawing& drawing : set) {
                all.emplace(drawing.name, rendered(drawing, at));
            }
        }
        return all;
    };
    static const std::map<int, std::map<std::string, QImage>> byScale{{1, render(1)},
                                                                      {2, render(2)}};
    return byScale.at(scale);
}

inline const QImage& picture(const std::string& name, int scale = 1) {
    return pictures(scale).at(name);
}

inline bool isKey(QRgb pixel) {
    return std::ranges::any_of(std::array{16, 24, 32}, [pixel](int depth) {
        const ui::Colour key = ui::keyColour(depth);
        return qRed(pixel) == key.red && qGreen(pixel) == key.green && qBlue(pixel) == key.blue;
    });
}

inline int keyPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += isKey(image.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

inline double brightness(QRgb pixel) {
    return 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
}

inline double brightest(const QImage& image) {
    double most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            most = isKey(pixel) ? most : std::max(most, brightness(pixel));
        }
    }
    return most;
}

} // namespace tovik::skinart
