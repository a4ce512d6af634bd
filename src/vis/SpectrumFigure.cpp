// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SpectrumFigure.h"

#include "base/Numbers.h"
#include "ui/PixelColour.h"

#include <algorithm>

namespace tovik::vis {

namespace {

constexpr std::uint32_t kBlack = 0xFF000000U;
constexpr std::uint32_t kWhite = 0xFFFFFFFFU;

/// Where no skin gives bars: red hot at the top, amber, and a blue that goes with navy below.
constexpr ui::Colour kTop{224, 58, 38};
constexpr ui::Colour kMiddle{255, 156, 0};
constexpr ui::Colour kBottom{61, 116, 217};
constexpr double kMiddleAt = 0.45; ///< of the height, from the top

std::uint8_t between(std::uint8_t from, std::uint8_t to, double part) {
    return static_cast<std::uint8_t>(from + (to - from) * part);
}

ui::Colour between(ui::Colour from, ui::Colour to, double part) {
    return {between(from.red, to.red, part), between(from.green, to.green, part),
            between(from.blue, to.blue, part)};
}

ui::PixelImage barsOfOurOwn(int height) {
    ui::PixelImage bars{.width = 1, .height = height, .pixels = {}};
    for (int y = 0; y < height; ++y) {
        const double down = static_cast<double>(y) / height;
        const ui::Colour colour =
            down < kMiddleAt ? between(kTop, kMiddle, down / kMiddleAt)
                             : between(kMiddle, kBottom, (down - kMiddleAt) / (1 - kMiddleAt));
        bars.pixels.push_back(ui::opaquePixel(colour));
    }
    return bars;
}

int rowOf(float level, int height) {
    return base::toInt32(height - static_cast<double>(level) * height);
}

} // namespace

bool SpectrumFigure::place(const SpectrumData& data, int width, int height) {
    if (const int grown = std::max(width / kPlainWidth, 1); grown != grown_) {
        grown_ = grown;
        everything_ = true;
    }
    for (std::size_t band = 0; band < kBands; ++band) {
        wanted_.at(band) = {.top = rowOf(data.bands.at(band), height),
                            .mark = rowOf(data.peaks.at(band), height)};
    }
    return everything_ || wanted_ != drawn_;
}

void SpectrumFigure::draw(ui::PixelImage& picture, const ui::PixelImage* bars) {
    // A skin's bars are made for the window's height.
    if (bars == nullptr || bars->pixels.empty() || grown_ > 1) {
        if (ownBars_.height != picture.height) {
            ownBars_ = barsOfOurOwn(picture.height);
        }
        bars = &ownBars_;
    }
    if (everything_) {
        std::ranges::fill(picture.pixels, kBlack);
    }
    for (std::size_t band = 0; band < kBands; ++band) {
        if (everything_ || wanted_.at(band) != drawn_.at(band)) {
            drawColumn(picture, *bars, band);
            drawn_.at(band) = wanted_.at(band);
        }
    }
    everything_ = false;
}

void SpectrumFigure::drawColumn(ui::PixelImage& picture, const ui::PixelImage& bars,
                                std::size_t band) const {
    const int unused = picture.width - static_cast<int>(kBands) * kBarPitch * grown_;
    const int pitch = static_cast<int>(band) * kBarPitch * grown_ + (grown_ > 1 ? unused / 2 : 0);
    const int right = std::min(pitch + kSpectrumBarRight * grown_, picture.width);
    const Column column = wanted_.at(band);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = pitch + grown_; x < right; ++x) {
            std::uint32_t& pixel = picture.pixels[ui::pixelPlace(picture, x, y)];
            if (y >= column.mark && y < column.mark + grown_) {
                pixel = kWhite;
            } else if (y < column.top) {
                pixel = kBlack;
            } else {
                pixel = bars.pixels[ui::pixelPlace(bars, x % bars.width, y % bars.height)];
            }
        }
    }
}

} // namespace tovik::vis
