// SPDX-License-Identifier: GPL-3.0-or-later
// What a window costs to draw: all of it, and what the ticks of a playing track change; at 1, 2 and
// 3 pixels of the screen for one of the skin along a side, and reduced to a half of one. With each
// come what its pictures take: in skin pixels, and in larger ones.
#include "PictureSet.h"
#include "ui/GlyphText.h"
#include "ui/KeyColour.h"
#include "ui/PixelColour.h"
#include "ui/qt/Reduction.h"
#include "ui/qt/WindowImage.h"
#include "window/MainElements.h"
#include "window/TextFields.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <QGuiApplication>

namespace {

using namespace tovik::ui;
using namespace tovik::window;

constexpr double kMebibyte = 1024 * 1024;

PixelImage pixelsOf(const tovik::skinart::Drawing& drawing, int density) {
    const QImage image = rendered(drawing, density).convertToFormat(QImage::Format_ARGB32);
    const auto* const first = reinterpret_cast<const std::uint32_t*>(image.constBits());
    PixelImage pixels{
        image.width(), image.height(), {first, first + image.width() * image.height()}, density};
    std::ranges::replace(pixels.pixels, opaquePixel(keyColour(kWindowDepth)), 0U);
    return pixels;
}

/// The main window with the shipped pictures.
struct Window {
    MainElements elements{mainLayout()};
    PictureStore pictures;
    TextFields fields{elements, pictures};
    WindowImage image{elements, pictures};
    double scale;

    explicit Window(const benchmark::State& state)
        : scale(static_cast<double>(state.range(0)) / 2) {
        for (const auto& set : {tovik::skinart::skinDrawings(), tovik::skinart::windowDrawings()}) {
            for (const tovik::skinart::Drawing& drawing : set) {
                elements.touch(drawing.spot.name, drawing.spot.index).picture =
                    pictures.add(pixelsOf(drawing, 1), [drawing](int factor) {
                        const int density = factor % 3 == 0 ? 3 : factor % 2 == 0 ? 2 : 1;
                        return density > 1 ? pixelsOf(drawing, density) : PixelImage{};
                    });
            }
        }
        image.setFactor(wholeFactor(scale));
        draw();
    }

    void draw() {
        QRegion changed;
        for (const ElementStore::Change& change : elements.takeChanges()) {
            for (const auto& box : {change.before, change.after}) {
                if (box) {
                    image.invalidate(paintedBox(*box));
                    const Box painted = paintedBox(*box);
                    changed += QRectF(painted.left * scale, painted.top * scale,
                                      painted.width * scale, painted.height * scale)
                                   .toAlignedRect();
                }
            }
        }
        reduce(changed);
    }

    void drawAll() {
        image.invalidateAll();
        const Box ground = elements.get(MainElement::mainIMG).box();
        reduce(QRectF(0, 0, ground.width * scale, ground.height * scale).toAlignedRect());
    }

    void reduce(const QRegion& parts) {
        const QImage& whole = image.compose(std::nullopt);
        const double ratio = image.factor() / scale;
        for (const QRect& part : parts) {
            if (ratio > 1) {
                benchmark::DoNotOptimize(reduced(whole, {}, ratio, part).constBits());
            }
        }
        benchmark::DoNotOptimize(whole.constBits());
    }

    void tell(benchmark::State& state) const {
        const PictureStore::Sizes sizes = pictures.sizes();
        state.counters["plain_MiB"] = static_cast<double>(sizes.plain) / kMebibyte;
        state.counters["fine_MiB"] = static_cast<double>(sizes.fine) / kMebibyte;
    }
};

void wholeWindow(benchmark::State& state) {
    Window window(state);
    for (auto _ : state) {
        window.drawAll();
    }
    window.tell(state);
}

/// One move of the title, five times a second.
void titleTick(benchmark::State& state) {
    Window window(state);
    const std::u32string text = charactersOf("An artist - a title of usual length (04:05)***");
    std::size_t start = 0;
    const auto tick = [&] {
        start = (start + 1) % text.size();
        static_cast<void>(window.fields.draw(
            MainElement::songname, 0, text.substr(start) + text.substr(0, start), Strip::Bright));
        window.draw();
    };
    tick(); // the strip is drawn in its larger size
    for (auto _ : state) {
        tick();
    }
}

/// A second of the clock: the last digit and the mark of the position.
void clockTick(benchmark::State& state) {
    constexpr int kDigits = 10;
    Window window(state);
    std::size_t second = 0;
    const auto tick = [&] {
        ++second;
        window.elements.touch(MainElement::timed, 5).picture =
            window.elements.get(MainElement::Digit, second % kDigits).picture;
        window.elements.touch(MainElement::track).left = 26 + static_cast<double>(second % 240);
        window.draw();
    };
    for (int i = 0; i < kDigits; ++i) {
        tick(); // likewise
    }
    for (auto _ : state) {
        tick();
    }
}

} // namespace

// Half pixels of the screen for one of the skin.
BENCHMARK(wholeWindow)->Arg(2)->Arg(3)->Arg(4)->Arg(6);
BENCHMARK(titleTick)->Arg(2)->Arg(3)->Arg(4)->Arg(6);
BENCHMARK(clockTick)->Arg(2)->Arg(3)->Arg(4)->Arg(6);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
