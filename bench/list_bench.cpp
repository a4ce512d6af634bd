// SPDX-License-Identifier: GPL-3.0-or-later
// What a list in a window costs, by its length: a frame, a step of scrolling, a row that goes,
// comes, moves or is chosen; rows that are removed and taken back.
#include "app/ListWatch.h"
#include "desktop/RowIds.h"
#include "player/ShuffleOrder.h"
#include "playlist/ListMirror.h"
#include "playlist/ListUndo.h"
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

class AnyRandom final : public host::RandomNumbers {
public:
    double next() override { return 0.5; }
};

/// All that hears of a change of the list in the player.
struct Undoable {
    explicit Undoable(const benchmark::State& state) : shown(state) {
        comfort.keepsRemovedRows = true;
        comfort.selectsNeighbour = true;
        shown.list.obey(comfort);
    }

    base::Comfort comfort;
    Shown shown;
    AnyRandom random;
    player::ShuffleOrder order{shown.list, random};
    desktop::RowIds ids{shown.list};
    playlist::ListUndo undo{shown.list};
};

/// Every other row goes.
void removeHalf(benchmark::State& state) {
    Undoable list(state);
    for (auto round : state) {
        state.PauseTiming();
        for (playlist::Row row = 1; row <= list.shown.list.ListCount(); row += 2) {
            list.shown.list.MS(row);
        }
        state.ResumeTiming();
        list.shown.list.MultiIzbris();
        list.shown.settle();
        state.PauseTiming();
        list.undo.undo();
        state.ResumeTiming();
    }
}

void takeBackHalf(benchmark::State& state) {
    Undoable list(state);
    for (auto round : state) {
        state.PauseTiming();
        for (playlist::Row row = 1; row <= list.shown.list.ListCount(); row += 2) {
            list.shown.list.MS(row);
        }
        list.shown.list.MultiIzbris();
        state.ResumeTiming();
        list.undo.undo();
        list.shown.settle();
    }
}

void clearAll(benchmark::State& state) {
    Undoable list(state);
    for (auto round : state) {
        list.shown.list.Clear();
        list.shown.settle();
        state.PauseTiming();
        list.undo.undo();
        state.ResumeTiming();
    }
}

void takeBackAll(benchmark::State& state) {
    Undoable list(state);
    for (auto round : state) {
        state.PauseTiming();
        list.shown.list.Clear();
        state.ResumeTiming();
        list.undo.undo();
        list.shown.settle();
    }
}

/// Rows that were added go again.
void takeBackAnAdd(benchmark::State& state) {
    for (auto round : state) {
        state.PauseTiming();
        {
            base::Comfort comfort;
            comfort.keepsRemovedRows = true;
            Shown shown(state);
            shown.list.Clear();
            shown.list.obey(comfort);
            playlist::ListUndo undo(shown.list);
            for (std::int64_t row = 0; row < state.range(0); ++row) {
                shown.add(row);
            }
            state.ResumeTiming();
            undo.undo();
            shown.settle();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(removeHalf)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(takeBackHalf)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(clearAll)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(takeBackAll)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(takeBackAnAdd)->Arg(100'000)->Unit(benchmark::kMicrosecond);
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
