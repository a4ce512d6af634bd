// SPDX-License-Identifier: GPL-3.0-or-later
// What a long playlist costs: loading, saving, deleting, selecting, searching, and memory a row.
#include "playlist/ListMirror.h"
#include "playlist/M3uList.h"
#include "playlist/stdSS.h"
#include "playlist/TitleSearch.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include <malloc.h>

namespace tovik::playlist {
namespace {

class IdlePump final : public host::MessagePump {
public:
    [[nodiscard]] bool Step() override { return true; }
};

/// A saved list with names of the usual length: 53 bytes of path, 26 of title on average.
std::string savedList(std::int64_t rows) {
    std::string text = "#EXTM3U\r\n";
    for (std::int64_t row = 0; row < rows; ++row) {
        const std::string number = std::to_string(row);
        text += "#EXTINF:215,Some Artist - Song number " + number;
        text += "\r\n/home/user/Music/Some Artist/Some Album/Song " + number + ".mp3\r\n";
    }
    return text;
}

bool load(const std::string& text, stdSS& list) {
    IdlePump pump;
    const bool stop = false;
    return appendM3u(text, list, pump, stop) == ReadEnd::Complete;
}

void readList(benchmark::State& state) {
    const std::string text = savedList(state.range(0));
    for (auto round : state) {
        stdSS list;
        if (!load(text, list) || list.ListCount() != state.range(0)) {
            state.SkipWithError("the list was not read");
            break;
        }
    }
}

/// Bytes of the heap that a loaded row takes, and of them the bytes of its texts.
void memoryPerRow(benchmark::State& state) {
    const std::string text = savedList(state.range(0));
    double bytes = 0;
    double letters = 0;
    for (auto round : state) {
        const std::size_t before = ::mallinfo2().uordblks + ::mallinfo2().hblkhd;
        stdSS list;
        if (!load(text, list)) {
            state.SkipWithError("the list was not read");
            break;
        }
        bytes = static_cast<double>(::mallinfo2().uordblks + ::mallinfo2().hblkhd - before);
        list.GetData(list.ListCount());
        letters = static_cast<double>(list.OutFileName.size() + list.OutTitle.size() +
                                      list.OutTimeText.size());
    }
    state.counters["bytes_a_row"] = bytes / static_cast<double>(state.range(0));
    state.counters["letters_a_row"] = letters;
}

void writeList(benchmark::State& state) {
    stdSS list;
    static_cast<void>(load(savedList(state.range(0)), list));
    for (auto round : state) {
        benchmark::DoNotOptimize(m3uText(list));
    }
}

/// Every other row of the list is marked; the mirror hears of all that go.
void removeHalf(benchmark::State& state) {
    const std::string text = savedList(state.range(0));
    for (auto round : state) {
        state.PauseTiming();
        {
            stdSS list;
            ListMirror mirror(list);
            static_cast<void>(load(text, list));
            for (Row row = 1; row <= list.ListCount(); row += 2) {
                list.MS(row);
            }
            mirror.ListIndex(list.ListCount() - 1);
            state.ResumeTiming();
            list.MultiIzbris();
            state.PauseTiming();
            if (list.ListCount() != state.range(0) / 2) {
                state.SkipWithError("not the half that was marked");
            }
        }
        state.ResumeTiming();
    }
}

void removeFirst(benchmark::State& state) {
    stdSS list;
    static_cast<void>(load(savedList(state.range(0)), list));
    for (auto round : state) {
        list.Remove(1);
        list.AddItem({}, "/a", "a", "00:00", 0);
    }
}

void selectNext(benchmark::State& state) {
    stdSS list;
    static_cast<void>(load(savedList(state.range(0)), list));
    for (auto round : state) {
        list.SelectIndex(list.SelectedIndex % list.ListCount() + 1);
    }
}

void markAll(benchmark::State& state) {
    stdSS list;
    static_cast<void>(load(savedList(state.range(0)), list));
    for (auto round : state) {
        list.ModifierMask = stdSS::kShiftMask;
        list.SelectIndex(1);
        list.MS(list.ListCount());
        list.SelectIndex(2);
    }
}

/// The slowest key of a word that is typed into the search: the first one, for which the letters of
/// all titles are folded.
void searchFirstKey(benchmark::State& state) {
    stdSS list;
    static_cast<void>(load(savedList(state.range(0)), list));
    for (auto round : state) {
        TitleSearch search(list);
        search.find("s", TitleMatch::contains);
        if (search.hits().size() != static_cast<std::size_t>(state.range(0))) {
            state.SkipWithError("not every title");
        }
    }
}

/// A word key by key, and back; a round is all its keys.
void searchWord(benchmark::State& state) {
    stdSS list;
    static_cast<void>(load(savedList(state.range(0)), list));
    TitleSearch search(list);
    search.find("", TitleMatch::contains);
    static constexpr std::string_view kWord = "song number 4711";
    for (auto round : state) {
        for (std::size_t letters = 1; letters <= kWord.size(); ++letters) {
            search.find(kWord.substr(0, letters), TitleMatch::contains);
        }
        for (std::size_t letters = kWord.size(); letters > 0; --letters) {
            search.find(kWord.substr(0, letters - 1), TitleMatch::contains);
        }
    }
    state.SetItemsProcessed(state.iterations() * 2 * static_cast<std::int64_t>(kWord.size()));
}

constexpr std::int64_t kRows = 100'000;

BENCHMARK(readList)->Arg(kRows)->Arg(5 * kRows)->Unit(benchmark::kMillisecond);
BENCHMARK(memoryPerRow)->Arg(kRows)->Unit(benchmark::kMillisecond);
BENCHMARK(writeList)->Arg(kRows)->Unit(benchmark::kMillisecond);
BENCHMARK(removeHalf)->Arg(kRows)->Unit(benchmark::kMillisecond);
BENCHMARK(removeFirst)->Arg(kRows)->Unit(benchmark::kMicrosecond);
BENCHMARK(selectNext)->Arg(kRows)->Unit(benchmark::kNanosecond);
BENCHMARK(searchFirstKey)->Arg(kRows)->Unit(benchmark::kMillisecond);
BENCHMARK(searchWord)->Arg(kRows)->Unit(benchmark::kMillisecond);
BENCHMARK(markAll)->Arg(kRows)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tovik::playlist

BENCHMARK_MAIN();
