// SPDX-License-Identifier: GPL-3.0-or-later
// A spectrogram that scrolls to the left: time goes right, pitch goes up, and the louder a pitch
// the hotter its colour. A click changes the colours.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <tovik/vis.h>
#include <vector>

namespace {

struct Stop {
    float at;
    float red;
    float green;
    float blue;
};

using Scale = std::array<Stop, 6>;

constexpr std::array<Scale, 3> kScales = {
    // Embers, from night over violet and fire to white.
    Scale{{{0.00F, 4, 4, 14},
           {0.25F, 48, 12, 92},
           {0.45F, 146, 28, 104},
           {0.65F, 232, 86, 42},
           {0.85F, 253, 196, 70},
           {1.00F, 255, 255, 232}}},
    // Deep sea.
    Scale{{{0.00F, 2, 6, 18},
           {0.25F, 8, 38, 92},
           {0.45F, 12, 96, 138},
           {0.65F, 24, 168, 150},
           {0.85F, 158, 226, 148},
           {1.00F, 250, 255, 224}}},
    // Silver.
    Scale{{{0.00F, 6, 6, 8},
           {0.25F, 44, 46, 54},
           {0.45F, 92, 96, 108},
           {0.65F, 148, 152, 162},
           {0.85F, 212, 214, 220},
           {1.00F, 255, 255, 255}}},
};

constexpr std::size_t kColours = 256;
constexpr float kFloorDb = -72;  ///< what is as dark as silence
constexpr float kCeilingDb = -6; ///< what is as bright as can be
constexpr double kLowestHz = 50; ///< at the bottom of the picture
constexpr double kHighestHz = 16000;
constexpr double kSweep = 6; ///< seconds from one edge to the other in a picture 360 wide
constexpr double kSweepWidth = 360;

class Spectrogram {
public:
    Spectrogram() { choose(); }

    void click() {
        scale_ = (scale_ + 1) % kScales.size();
        choose();
    }

    void render(const tovik_vis_frame& frame) {
        // Time is measured in pixels, whatever the pace of the frames is.
        const double now = frame.seconds * kSweepWidth / kSweep;
        const auto steps = static_cast<std::uint32_t>(
            std::clamp(now - drawn_, 1.0, static_cast<double>(std::max(frame.width / 8, 1U))));
        drawn_ = std::max(drawn_ + steps, now - 1);
        const std::size_t kept = frame.width - std::min(steps, frame.width);
        for (std::uint32_t y = 0; y < frame.height; ++y) {
            std::uint32_t* const row = frame.pixels + std::size_t{y} * frame.width;
            std::memmove(row, row + (frame.width - kept), kept * sizeof *row);
            const std::uint32_t colour = colourAt(frame, y);
            std::fill(row + kept, row + frame.width, colour);
        }
    }

private:
    void choose() {
        const Scale& scale = kScales[scale_];
        for (std::size_t i = 0; i < kColours; ++i) {
            const float at = static_cast<float>(i) / (kColours - 1);
            std::size_t upper = 1;
            while (upper + 1 < scale.size() && scale[upper].at < at) {
                ++upper;
            }
            const Stop& a = scale[upper - 1];
            const Stop& b = scale[upper];
            const float part = std::clamp((at - a.at) / (b.at - a.at), 0.0F, 1.0F);
            const auto mix = [part](float from, float to) {
                return static_cast<std::uint32_t>(std::lround(from + (to - from) * part));
            };
            colours_[i] =
                mix(a.red, b.red) << 16U | mix(a.green, b.green) << 8U | mix(a.blue, b.blue);
        }
    }

    /// Pitch goes by octaves. Low rows lie between two values and take of both, high ones span
    /// several and take the loudest.
    [[nodiscard]] std::uint32_t colourAt(const tovik_vis_frame& frame, std::uint32_t y) const {
        const double low = valueAt(frame, y + 1);
        const double high = valueAt(frame, y);
        const auto first = static_cast<std::size_t>(low);
        const auto last = static_cast<std::size_t>(high);
        float size = 0;
        if (last > first + 1) {
            for (std::size_t i = first; i < std::min<std::size_t>(last, TOVIK_VIS_VALUES); ++i) {
                size = std::max(size, frame.spectrum[i]);
            }
        } else {
            const double middle = (low + high) / 2;
            const std::size_t left =
                std::min<std::size_t>(static_cast<std::size_t>(middle), TOVIK_VIS_VALUES - 2);
            const auto part = static_cast<float>(middle - static_cast<double>(left));
            size = frame.spectrum[left] * (1 - part) + frame.spectrum[left + 1] * part;
        }
        const float db = 20 * std::log10(std::max(size, 1e-6F));
        const float level = std::clamp((db - kFloorDb) / (kCeilingDb - kFloorDb), 0.0F, 1.0F);
        return colours_[static_cast<std::size_t>(level * (kColours - 1))];
    }

    /// The place in the spectrum that belongs to an edge between rows.
    static double valueAt(const tovik_vis_frame& frame, std::uint32_t edge) {
        const double up = 1 - static_cast<double>(edge) / frame.height;
        const double hertz = kLowestHz * std::pow(kHighestHz / kLowestHz, up);
        return std::min(hertz * TOVIK_VIS_SAMPLES / frame.rate, TOVIK_VIS_VALUES - 1.0);
    }

    std::size_t scale_ = 0;
    std::array<std::uint32_t, kColours> colours_{};
    double drawn_ = 0; ///< how far time was drawn, in pixels
};

Spectrogram& of(void* self) {
    return *static_cast<Spectrogram*>(self);
}

constexpr tovik_vis kVis = {
    .version = TOVIK_VIS_VERSION,
    .size = sizeof(tovik_vis),
    .name = "Spectrogram",
    .begin = [](std::uint32_t, std::uint32_t, const char*) -> void* {
        return new (std::nothrow) Spectrogram;
    },
    .render = [](void* self, const tovik_vis_frame* frame) { of(self).render(*frame); },
    .click = [](void* self, std::int32_t, std::int32_t) { of(self).click(); },
    .resize = nullptr,
    .end = [](void* self) { delete static_cast<Spectrogram*>(self); },
};

} // namespace

const tovik_vis* tovik_vis_get() {
    return &kVis;
}
