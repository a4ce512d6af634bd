// SPDX-License-Identifier: GPL-3.0-or-later
// What filling a list costs: playlist files of both kinds through a pump that gives way, a tree of
// folders, and how it grows with the number of entries.
#include "playlist/AudioExtensions.h"
#include "playlist/FileNames.h"
#include "playlist/FindFiles.h"
#include "playlist/PlaylistFiles.h"
#include "playlist/PlsList.h"
#include "playlist/stdSS.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tovik::playlist {
namespace {

class IdlePump final : public host::MessagePump {
public:
    [[nodiscard]] bool Step() override { return true; }
};

/// A folder of this run alone, gone with the object.
class Scratch {
public:
    Scratch() {
        std::string name = (std::filesystem::temp_directory_path() / "tovik-bench-XXXXXX").string();
        path = ::mkdtemp(name.data());
    }

    ~Scratch() {
        std::error_code failure;
        std::filesystem::remove_all(path, failure);
    }

    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string path;
};

/// Rows with names of the usual length: 53 bytes of path, 26 of title on average.
void fill(stdSS& list, std::int64_t rows) {
    for (std::int64_t row = 0; row < rows; ++row) {
        const std::string number = std::to_string(row);
        list.AddItem({}, "/home/user/Music/Some Artist/Some Album/Song " + number + ".mp3",
                     "Some Artist - Song number " + number, "03:35", 215);
    }
}

template <typename Read>
void readFile(benchmark::State& state, const char* name, std::string (*text)(const stdSS&),
              const Read& read) {
    const Scratch scratch;
    const std::string path = scratch.path + "/" + name;
    {
        stdSS list;
        fill(list, state.range(0));
        std::ofstream(path, std::ios::binary) << text(list);
    }
    const host::Paths paths(scratch.path);
    IdlePump pump;
    for (auto round : state) {
        stdSS list;
        PlaylistFiles files(list, pump, paths);
        read(files, path);
        if (list.ListCount() != state.range(0)) {
            state.SkipWithError("the list was not read");
            break;
        }
    }
    state.SetComplexityN(state.range(0));
}

void openM3u(benchmark::State& state) {
    readFile(state, "list.m3u", m3uText, [](PlaylistFiles& files, const std::string& path) {
        static_cast<void>(files.open_m3u(path));
    });
}

void openPls(benchmark::State& state) {
    readFile(state, "list.pls", plsText,
             [](PlaylistFiles& files, const std::string& path) { files.Openpls2(path); });
}

/// A tree of ten files a folder: the walk and the rows that come of it.
void addTree(benchmark::State& state) {
    const Scratch scratch;
    constexpr std::int64_t kFilesInFolder = 10;
    for (std::int64_t folder = 0; folder < state.range(0) / kFilesInFolder; ++folder) {
        const std::string path = scratch.path + "/Artist " + std::to_string(folder / 10) +
                                 "/Album " + std::to_string(folder);
        std::filesystem::create_directories(path);
        for (std::int64_t file = 0; file < kFilesInFolder; ++file) {
            std::ofstream(path + "/Song " + std::to_string(file) + ".mp3") << "x";
        }
    }
    std::vector<std::string> patterns;
    for (std::size_t n = 0; n < kScannedExtensions; ++n) {
        patterns.push_back("." + std::string(AudioExtensions.at(n)));
    }
    const std::atomic<bool> stop = false;
    for (auto round : state) {
        stdSS list;
        for (const std::string& path : FindFiles(scratch.path, patterns, {}, stop)) {
            for (std::int32_t rows = scannedRows(get_extension(path)); rows > 0; --rows) {
                list.AddItem({}, path, GetLastBackSlash(path), "0:00", 0);
            }
        }
        if (list.ListCount() != state.range(0)) {
            state.SkipWithError("not all files were found");
            break;
        }
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(openM3u)
    ->RangeMultiplier(10)
    ->Range(1000, 100'000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(openPls)
    ->RangeMultiplier(10)
    ->Range(1000, 100'000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(addTree)->Arg(2000)->Arg(20'000)->Complexity()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tovik::playlist

BENCHMARK_MAIN();
