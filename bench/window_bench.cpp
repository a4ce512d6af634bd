// SPDX-License-Identifier: GPL-3.0-or-later
// What a window costs to draw: all of it, and what the ticks of a playing track change.
#include "ui/GlyphText.h"
#include "ui/qt/WindowImage.h"
#include "window/MainElements.h"
#include "window/TextFields.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

namespace {

using namespace tovik::ui;
using namespace tovik::window;

/// The main window with pictures of one colour for everything that is shown, and strips.
struct Window {
    MainElements elements{mainLayout()};
    PictureStore pictures;
    TextFields fields{elements, pictures};
    WindowImage image{elements, pictures};

    explicit Window(int factor) {
        for (const ElementPlace<MainElement>& place : mainLayout()) {
            for (std::size_t i = 0; i < place.count; ++i) {
                Element& element = elements.touch(place.name, place.first + i);
                if (element.kind != ElementKind::Label && element.width >= 1) {
                    element.picture =
                        picture(static_cast<int>(element.width), static_cast<int>(element.height));
                }
            }
        }
        elements.touch(MainElement::textImg).picture = picture(155, 18);
        for (std::size_t digit = 0; digit < 10; ++digit) {
            elements.touch(MainElement::Digit, digit).picture = picture(14, 17);
        }
        image.setFactor(factor);
        draw();
    }

    Picture picture(int width, int height) {
        const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        return pictures.add({width, height, std::vector<std::uint32_t>(count, 0xFF336699)});
    }

    void draw() {
        for (const ElementStore::Change& change : elements.takeChanges()) {
            for (const auto& box : {change.before, change.after}) {
                if (box) {
                    image.invalidate(paintedBox(*box));
                }
            }
        }
        benchmark::DoNotOptimize(image.compose(std::nullopt).constBits());
    }
};

void wholeWindow(benchmark::State& state) {
    Window window(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        window.image.invalidateAll();
        window.draw();
    }
}

/// One move of the title, five times a second.
void titleTick(benchmark::State& state) {
    Window window(static_cast<int>(state.range(0)));
    const std::u32string text = charactersOf("An artist - a title of usual length (04:05)***");
    std::size_t start = 0;
    for (auto _ : state) {
        start = (start + 1) % text.size();
        static_cast<void>(window.fields.draw(
            MainElement::songname, 0, text.substr(start) + text.substr(0, start), Strip::Bright));
        window.draw();
    }
}

/// A second of the clock: the last digit and the mark of the position.
void clockTick(benchmark::State& state) {
    Window window(static_cast<int>(state.range(0)));
    std::size_t second = 0;
    for (auto _ : state) {
        ++second;
        window.elements.touch(MainElement::timed, 5).picture =
            window.elements.get(MainElement::Digit, second % 10).picture;
        window.elements.touch(MainElement::track).left = 26 + static_cast<double>(second % 240);
        window.draw();
    }
}

} // namespace

BENCHMARK(wholeWindow)->Arg(1)->Arg(2);
BENCHMARK(titleTick)->Arg(1)->Arg(2);
BENCHMARK(clockTick)->Arg(1)->Arg(2);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
