// SPDX-License-Identifier: GPL-3.0-or-later
// Northern lights: curtains that burn where the music is, deep tones in the middle and high ones
// towards the edges, above mountains and a lake where there is room. A click changes the colours.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <new>
#include <tovik/vis.h>
#include <vector>

namespace {

using Rgb = std::array<float, 3>;

constexpr auto real = [](auto number) { return static_cast<float>(number); };
constexpr auto index = [](auto number) { return static_cast<std::size_t>(number); };

constexpr Rgb sum(Rgb one, Rgb other, float by) {
    return {one[0] + other[0] * by, one[1] + other[1] * by, one[2] + other[2] * by};
}

constexpr int kBands = 24;
constexpr std::size_t kCurtains = 4;
constexpr int kShades = 96; ///< of a curtain, from hem to top

/// A hilly line without steps: -1 to 1.
float wave(float x, float time, float seed) {
    return 0.5F * std::sin(x * 2.1F + time * 0.31F + seed) +
           0.3F * std::sin(x * 4.7F - time * 0.43F + seed * 2.3F) +
           0.2F * std::sin(x * 9.1F + time * 0.77F + seed * 4.1F);
}

/// Round the circle of colours: 0 red, a third green, two thirds blue.
Rgb hue(float turn, float strength) {
    const auto part = [&](float at) {
        return strength * std::pow(0.5F + 0.5F * std::cos(6.2831853F * (turn - at)), 2.0F);
    };
    return {part(0), part(1.0F / 3), part(2.0F / 3)};
}

class Aurora {
public:
    void click() { turn_ += 0.29F; }

    void render(const tovik_vis_frame& frame) {
        const std::uint32_t step = frame.width > 960 ? 2 : 1; // four pixels in one
        width_ = static_cast<int>((frame.width + step - 1) / step);
        height_ = static_cast<int>((frame.height + step - 1) / step);
        horizon_ = height_ >= 80 ? height_ * 3 / 4 : height_; // mountains and a lake need room
        light_.resize(index(width_) * index(height_));
        listen(frame);
        hang(real(frame.seconds));
        drawSky(real(frame.seconds));
        drawLake(real(frame.seconds));
        show(frame, step);
    }

private:
    [[nodiscard]] std::size_t place(int x, int y) const { return index(y * width_ + x); }

    /// Levels of bands of equal width for the ear, quick to rise and slow to fall.
    void listen(const tovik_vis_frame& frame) {
        int next = 1;
        for (int band = 0; band < kBands; ++band) {
            const float end = std::pow(200.0F, real(band + 1) / kBands) + real(band / 3 + 2);
            float power = 0;
            for (; next < std::min(static_cast<int>(end), TOVIK_VIS_VALUES); ++next) {
                power += frame.spectrum[next] * frame.spectrum[next];
            }
            float& kept = levels_[index(band)];
            const float level = std::min(std::pow(power, 0.24F) * (1 + 0.13F * real(band)), 1.5F);
            kept += (level - kept) * (level > kept ? 0.45F : 0.06F);
        }
    }

    /// The curtains of this moment, column by column, and their colours.
    void hang(float time) {
        columns_.resize(index(width_));
        const auto tall = real(horizon_);
        for (std::size_t k = 0; k < kCurtains; ++k) {
            const float seed = 1.7F + 2.4F * real(k);
            const float base = turn_ + 0.37F + 0.09F * std::sin(time * 0.11F + seed);
            for (int i = 0; i < kShades; ++i) { // sharp below, a long glow above
                const float up = real(i) / (kShades - 1);
                const float glow = std::min(up * 20, 1.0F) * std::exp(-2.3F * up) * (1 - up);
                shades_[k][index(i)] = hue(base + 0.60F * std::sqrt(up) - 0.04F, glow);
            }
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                const float x = (real(i) + 0.5F) / real(width_) * 2 - 1;
                const float fold = x * 1.3F + 0.35F * wave(x * 0.8F, time, seed + 3);
                // Which tones light this place: folded about the middle, each curtain shifted.
                const float side = std::abs(x + 0.12F * (real(k) - 1.5F));
                const float tone = std::min(side, 1.0F) * (kBands - 2);
                const float* const low = &levels_[index(tone)];
                const float level = low[0] + (low[1] - low[0]) * (tone - std::floor(tone));
                const float rays = 0.62F + 0.24F * std::sin(fold * 37 + seed * 5 + time * 0.9F) +
                                   0.14F * std::sin(fold * 83 - time * 1.7F + seed);
                const float breath = 0.7F + 0.3F * std::sin(fold * 3 + time * 0.5F + seed);
                const float hem = 0.66F + 0.06F * real(k) + 0.17F * wave(fold, time, seed);
                columns_[i][k] = {tall * hem, 1 / (tall * (0.34F + 0.5F * level + 0.08F * rays)),
                                  (0.3F + 3.4F * level * level) * rays * breath};
            }
        }
    }

    void drawSky(float time) {
        const Rgb above = hue(turn_ + 0.68F, 0.035F);
        const Rgb below = hue(turn_ + 0.55F, 0.10F);
        for (int y = 0; y < horizon_; ++y) {
            const float down = real(y) / real(horizon_);
            const Rgb ground = sum(sum({}, above, 1 - down), below, down * down);
            for (int x = 0; x < width_; ++x) {
                Rgb light = ground;
                for (std::size_t k = 0; k < kCurtains; ++k) {
                    const auto& [hem, scale, strength] = columns_[index(x)][k];
                    const float up = (hem - real(y)) * scale;
                    if (up > 0 && up < 1) {
                        light = sum(light, shades_[k][index(up * (kShades - 1))], strength);
                    }
                }
                light_[place(x, y)] = light;
            }
        }
        // The same stars in each picture, by a small generator.
        for (std::uint32_t star = 0, seed = 7; star < light_.size() / 900; ++star) {
            seed = seed * 1664525U + 1013904223U;
            const std::size_t at = (seed >> 8U) % (index(horizon_) * index(width_));
            const float twinkle = 0.6F + 0.4F * std::sin(real(seed % 628) + real(star % 9) * time);
            light_[at] = sum(light_[at], {0.8F, 0.9F, 1.0F}, real(seed % 97) * 0.005F * twinkle);
        }
    }

    void drawLake(float time) {
        for (int x = 0; horizon_ < height_ && x < width_; ++x) {
            const float at = real(x) / real(width_) * 6;
            const float rise = 0.08F + 0.05F * wave(at, 0, 0.6F) + 0.02F * wave(at * 5, 0, 2);
            for (auto y = static_cast<int>(real(horizon_) * (1 - rise)); y < horizon_; ++y) {
                light_[place(x, y)] = {0.004F, 0.006F, 0.012F};
            }
        }
        // What is near shows what is high above, drawn together and broken by the waves.
        for (int y = horizon_; y < height_; ++y) {
            const float depth = real(y - horizon_) / real(height_ - horizon_);
            const float swell = std::sin(160 / (depth + 0.16F) + time * 2.2F);
            const float mirrored = real(horizon_ - 4) * (1 - depth * 0.62F) + swell * 3 * depth;
            const float drift = std::sin(90 / (depth + 0.12F) - time * 1.6F) * (1 + 7 * depth);
            const Rgb* const from = &light_[place(0, static_cast<int>(mirrored))];
            const auto shift = static_cast<int>(drift * (1 + levels_[1]));
            for (int x = 0; x < width_; ++x) {
                const Rgb& light = from[std::clamp(x + shift, 0, width_ - 1)];
                light_[place(x, y)] = sum({}, light, 0.62F - 0.25F * depth + 0.05F * swell);
            }
        }
    }

    void show(const tovik_vis_frame& frame, std::uint32_t step) const {
        std::uint32_t* next = frame.pixels;
        for (std::uint32_t y = 0, seed = 1; y < frame.height; ++y) {
            const Rgb* const row = &light_[place(0, static_cast<int>(y / step))];
            for (std::uint32_t x = 0; x < frame.width; ++x) {
                seed = seed * 1664525U + 1013904223U;
                const float grain = real(seed >> 8U) * 0x1p-24F; // hides the steps of 256
                std::uint32_t pixel = 0;
                for (const float light : row[x / step]) {
                    const float shown = std::min(254 * light / (0.38F + 0.7F * light), 254.0F);
                    pixel = pixel << 8U | static_cast<std::uint32_t>(shown + grain);
                }
                *next++ = pixel;
            }
        }
    }

    int width_ = 0, height_ = 0, horizon_ = 0;
    float turn_ = 0; ///< of the circle of colours, by clicks
    std::array<float, kBands> levels_{};
    std::array<std::array<Rgb, kShades>, kCurtains> shades_{};
    /// Of each curtain in a column: the row of its lower edge, one over its height, its light.
    std::vector<std::array<std::array<float, 3>, kCurtains>> columns_;
    std::vector<Rgb> light_;
};

constexpr tovik_vis kVis = {
    .version = TOVIK_VIS_VERSION,
    .size = sizeof(tovik_vis),
    .name = "Aurora",
    .begin = [](auto, auto, auto) -> void* { return new (std::nothrow) Aurora; },
    .render = [](auto* self, auto* frame) { static_cast<Aurora*>(self)->render(*frame); },
    .click = [](auto* self, auto, auto) { static_cast<Aurora*>(self)->click(); },
    .resize = nullptr,
    .end = [](void* self) { delete static_cast<Aurora*>(self); },
};

} // namespace

const tovik_vis* tovik_vis_get() {
    return &kVis;
}
