// SPDX-License-Identifier: GPL-3.0-or-later
// What tags cost: reading those of many files, and a save in place and one that moves 100 MB.
#include "host/virtual/UnattendedDialogs.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace tovik::tags {
namespace {

std::string sound(std::size_t bytes) {
    std::string one = "\xFF\xFB\x90\x44";
    one.resize(417, 'x');
    std::string all;
    all.reserve(bytes + one.size());
    while (all.size() < bytes) {
        all += one;
    }
    return all;
}

/// A folder of files, in the folder for temporary files, removed with the object.
class Files {
public:
    Files(std::int64_t count, std::size_t soundBytes)
        : folder_(std::filesystem::temp_directory_path() /
                  ("tovik-tags-bench-" + std::to_string(::getpid()))) {
        std::filesystem::create_directory(folder_);
        const std::string bytes = sound(soundBytes);
        for (std::int64_t number = 0; number < count; ++number) {
            std::ofstream(path(number), std::ios::binary) << bytes;
            cMP3ID3v2 second(warning_);
            second.MP3File(path(number));
            second.Title("Some title of usual length");
            second.Artist("Some Artist");
            second.Album("Some Album");
            if (count > 1) {
                second.Update();
            }
            cMP3ID3v1 first(warning_);
            first.MP3File(path(number));
            first.Title("Some title of usual length");
            first.Update();
        }
    }

    ~Files() { std::filesystem::remove_all(folder_); }

    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    [[nodiscard]] std::string path(std::int64_t number) const {
        return folder_ / (std::to_string(number) + ".mp3");
    }

    TagWarning& warning() { return warning_; }

private:
    std::filesystem::path folder_;
    host::UnattendedDialogs dialogs_;
    TagWarning warning_{dialogs_};
};

void readBothTags(benchmark::State& state) {
    Files files(state.range(0), 20000);
    for (auto round : state) {
        for (std::int64_t number = 0; number < state.range(0); ++number) {
            cMP3ID3v1 first(files.warning());
            first.MP3File(files.path(number));
            cMP3ID3v2 second(files.warning());
            second.MP3File(files.path(number));
            if (!first.HasID3v1Tag() || second.Artist().empty()) {
                state.SkipWithError("a tag was not read");
                return;
            }
        }
    }
}

constexpr std::size_t kBigFile = 100000000;

void saveInPlace(benchmark::State& state) {
    Files files(1, kBigFile);
    cMP3ID3v2 tag(files.warning());
    tag.MP3File(files.path(0));
    tag.Title("first");
    tag.Update();
    for (auto round : state) {
        tag.Title("another");
        if (!tag.Update()) {
            state.SkipWithError("the tag was not written");
        }
    }
}

void saveWithAMove(benchmark::State& state) {
    Files files(1, kBigFile);
    cMP3ID3v2 tag(files.warning());
    tag.MP3File(files.path(0));
    std::size_t length = 2000;
    for (auto round : state) {
        tag.Title(std::string(length, 't'));
        length += 2048;
        if (!tag.Update()) {
            state.SkipWithError("the tag was not written");
        }
    }
}

BENCHMARK(readBothTags)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveInPlace)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveWithAMove)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace tovik::tags

BENCHMARK_MAIN();
