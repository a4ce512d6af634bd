// SPDX-License-Identifier: GPL-3.0-or-later
// An oscilloscope with a screen of phosphor: both sides as lines that leave a trail of light, over
// a faint grid. A click changes the phosphor.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <new>
#include <tovik/vis.h>
#include <vector>

namespace {

struct Light {
    float red = 0;
    float green = 0;
    float blue = 0;
};

/// The lines of both sides, left first.
struct Phosphor {
    std::array<Light, 2> lines;
    Light grid;
};

constexpr std::array kPhosphors = {
    Phosphor{{{{0.30F, 1.00F, 0.55F}, {0.20F, 0.75F, 1.00F}}}, {0.02F, 0.08F, 0.06F}},
    Phosphor{{{{1.00F, 0.72F, 0.22F}, {1.00F, 0.38F, 0.25F}}}, {0.09F, 0.05F, 0.01F}},
    Phosphor{{{{0.70F, 0.80F, 1.00F}, {0.85F, 0.60F, 1.00F}}}, {0.04F, 0.04F, 0.10F}},
};

constexpr float kGlow = 0.72F;    ///< of the light is left in the next picture
constexpr float kBright = 235.0F; ///< what a line brings to the pixel under it, of 255
constexpr int kDivisions = 8;     ///< of the grid, along its longer side
constexpr int kSearched = 128;    ///< samples in which a rising edge is looked for

class Oscilloscope {
public:
    void resize(std::uint32_t width, std::uint32_t height) {
        width_ = static_cast<int>(width);
        height_ = static_cast<int>(height);
        light_.assign(static_cast<std::size_t>(width) * height, Light{});
    }

    void click() { phosphor_ = (phosphor_ + 1) % kPhosphors.size(); }

    void render(const tovik_vis_frame& frame) {
        for (Light& one : light_) {
            one = {one.red * kGlow, one.green * kGlow, one.blue * kGlow};
        }
        const std::size_t first = edge(frame);
        follow(frame);
        const std::size_t count = TOVIK_VIS_SAMPLES - kSearched;
        const auto tall = static_cast<float>(height_);
        // Side by side where there is room for two screens one above the other, else both in one.
        const bool apart = height_ * 2 > width_ && height_ >= 120;
        for (std::size_t side = 0; side < 2; ++side) {
            const float* const samples = (side == 0 ? frame.left : frame.right) + first;
            const float middle = apart ? tall * (side == 0 ? 0.27F : 0.73F) : tall * 0.5F;
            const float reach = tall * (apart ? 0.22F : 0.46F);
            draw(samples, count, middle, reach, kPhosphors[phosphor_].lines[side]);
        }
        show(frame);
    }

private:
    /// Quiet music is drawn larger, up to four times.
    void follow(const tovik_vis_frame& frame) {
        float loudest = 0.25F;
        for (std::size_t i = 0; i < TOVIK_VIS_SAMPLES; ++i) {
            loudest = std::max({loudest, std::abs(frame.left[i]), std::abs(frame.right[i])});
        }
        loudest_ = std::max(loudest, loudest_ * 0.99F);
    }

    /// Where the picture begins, so that a steady tone stands still: the steepest rise through
    /// zero.
    static std::size_t edge(const tovik_vis_frame& frame) {
        std::size_t best = 0;
        float steepest = 0;
        for (std::size_t i = 1; i < kSearched; ++i) {
            const float before = frame.left[i - 1] + frame.right[i - 1];
            const float here = frame.left[i] + frame.right[i];
            if (before < 0 && here >= 0 && here - before > steepest * 1.05F) {
                steepest = here - before;
                best = i;
            }
        }
        return best;
    }

    void draw(const float* samples, std::size_t count, float middle, float reach, Light colour) {
        float before = middle;
        for (int x = 0; x < width_; ++x) {
            const float place = static_cast<float>(x) * static_cast<float>(count - 1) /
                                static_cast<float>(std::max(width_ - 1, 1));
            const auto sample = static_cast<std::size_t>(place);
            const float part = place - static_cast<float>(sample);
            const float level =
                samples[sample] * (1 - part) + samples[std::min(sample + 1, count - 1)] * part;
            const float y = middle - std::clamp(level / loudest_, -1.0F, 1.0F) * reach;
            column(x, x == 0 ? y : before, y, colour);
            before = y;
        }
    }

    /// A stretch of the line: the longer it is, the faster the ray was, and the fainter its light.
    void column(int x, float from, float to, Light colour) {
        const float top = std::min(from, to) - 1.0F;
        const float bottom = std::max(from, to) + 1.0F;
        const float bright = kBright / (1.0F + 0.035F * (bottom - top));
        const int last = std::min(static_cast<int>(std::ceil(bottom)), height_ - 1);
        for (int y = std::max(static_cast<int>(top), 0); y <= last; ++y) {
            const auto at = static_cast<float>(y);
            const float cover = std::clamp(std::min(at - top, bottom - at) + 0.25F, 0.0F, 1.0F);
            Light& one = light_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                                static_cast<std::size_t>(x)];
            one.red += colour.red * bright * cover;
            one.green += colour.green * bright * cover;
            one.blue += colour.blue * bright * cover;
        }
    }

    [[nodiscard]] bool onGrid(int x, int y) const {
        const int step = std::max(std::max(width_, height_) / kDivisions, 4);
        return (x - width_ / 2) % step == 0 || (y - height_ / 2) % step == 0;
    }

    void show(const tovik_vis_frame& frame) const {
        const Light grid = kPhosphors[phosphor_].grid;
        std::size_t i = 0;
        for (int y = 0; y < height_; ++y) {
            // A screen of glass is darker towards its edge.
            const float off = (static_cast<float>(y) + 0.5F) / static_cast<float>(height_) - 0.5F;
            const float ground = 40.0F * (1 - 2.6F * off * off);
            for (int x = 0; x < width_; ++x, ++i) {
                const float under = ground + (onGrid(x, y) ? 150.0F : 0.0F);
                const auto mix = [&](float light, float lit) {
                    return static_cast<std::uint32_t>(std::min(light + lit * under, 255.0F));
                };
                frame.pixels[i] = mix(light_[i].red, grid.red) << 16U |
                                  mix(light_[i].green, grid.green) << 8U |
                                  mix(light_[i].blue, grid.blue);
            }
        }
    }

    int width_ = 0;
    int height_ = 0;
    std::size_t phosphor_ = 0;
    float loudest_ = 1;
    std::vector<Light> light_; ///< 0 to 255, and above where lines meet
};

Oscilloscope& of(void* self) {
    return *static_cast<Oscilloscope*>(self);
}

constexpr tovik_vis kVis = {
    .version = TOVIK_VIS_VERSION,
    .size = sizeof(tovik_vis),
    .name = "Oscilloscope",
    .begin = [](std::uint32_t width, std::uint32_t height, const char*) -> void* {
        auto* const self = new (std::nothrow) Oscilloscope;
        if (self != nullptr) {
            self->resize(width, height);
        }
        return self;
    },
    .render = [](void* self, const tovik_vis_frame* frame) { of(self).render(*frame); },
    .click = [](void* self, std::int32_t, std::int32_t) { of(self).click(); },
    .resize = [](void* self, std::uint32_t width,
                 std::uint32_t height) { of(self).resize(width, height); },
    .end = [](void* self) { delete static_cast<Oscilloscope*>(self); },
};

} // namespace

const tovik_vis* tovik_vis_get() {
    return &kVis;
}
