// SPDX-License-Identifier: GPL-3.0-or-later
// What a list in a window costs, by its length: a frame, a step of scrolling, a row that goes,
// comes, moves or is chosen.
#include "app/ListWatch.h"
#include "playlist/ListMirror.h"
#include "window/ListRows.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>

namespace {

using namespace tovik;

struct Shown {
    playlist::stdSS list;
    playlist::ListMirror mirror{list};
    window::ListRows rows{list};
    host::Dispatcher dispatcher;
    ui::ListWidget widget{rows, rows, dispatcher};
    app::ListWatch watch{list, widget, true};

    explicit Shown(const benchmark::State& state) {
        for (std::int64_t row = 0; row < state.range(0); ++row) {
            add(row);
        }
        widget.setColours(window::kListColours);
        widget.showTimes();
        widget.resize(432, 190);
        widget.show();
        settle();
    }

    void add(std::int64_t row) {
        const std::string number = std::to_string(row);
        list.AddItem("", "/home/user/Music/Some Artist/Some Album/Song " + number + ".mp3",
                     "Some Artist - Song number " + number, "03:35", 215);
    }

    static void settle() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
};

void frame(benchmark::State& state) {
    Shown shown(state);
    for (auto round : state) {
        shown.widget.viewport()->repaint();
    }
}

void scrollByOneRow(benchmark::State& state) {
    Shown shown(state);
    QScrollBar& bar = *shown.widget.verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int middle = bar.value();
    int step = 0;
    for (auto round : state) {
        ++step;
        bar.setValue(middle + step % 2 * shown.widget.rowHeight());
        shown.settle();
    }
}

/// A row in the middle goes; another comes at the end, so that the length stays.
void removeInTheMiddle(benchmark::State& state) {
    Shown shown(state);
    for (auto round : state) {
        shown.list.Remove(shown.list.ListCount() / 2);
        shown.settle();
        state.PauseTiming();
        shown.add(0);
        state.ResumeTiming();
    }
}

void moveFromTheTopToTheMiddle(benchmark::State& state) {
    Shown shown(state);
    for (auto round : state) {
        shown.list.MoveRow(1, shown.list.ListCount() / 2);
        shown.settle();
    }
}

void chooseTheNextRow(benchmark::State& state) {
    Shown shown(state);
    for (auto round : state) {
        shown.rows.selectRow(
            static_cast<std::size_t>(shown.list.SelectedIndex % shown.list.ListCount()), {});
        shown.settle();
    }
}

} // namespace

BENCHMARK(frame)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(scrollByOneRow)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(removeInTheMiddle)
    ->RangeMultiplier(10)
    ->Range(100, 100'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(moveFromTheTopToTheMiddle)
    ->RangeMultiplier(10)
    ->Range(100, 100'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(chooseTheNextRow)
    ->RangeMultiplier(10)
    ->Range(100, 100'000)
    ->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
