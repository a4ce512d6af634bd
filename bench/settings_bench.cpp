// SPDX-License-Identifier: GPL-3.0-or-later
// What one access to the settings costs, with the file that is shipped. The folder lies where
// TMPDIR says: flushing takes as long as that disk does.
#include "config/ErrHandler.h"
#include "config/Settings.h"
#include "host/Dispatcher.h"
#include "host/system/SystemClock.h"
#include "host/virtual/VirtualClock.h"
#include "player/StoredSettings.h"

#include <benchmark/benchmark.h>

#include <filesystem>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace tovik;

/// A data folder that holds the shipped settings, removed with the object.
class DataFolder {
public:
    DataFolder()
        : path_(fs::temp_directory_path() / ("tovik-bench-" + std::to_string(::getpid()))) {
        fs::create_directories(path_ / "db");
        fs::copy_file(TOVIK_DATA_DIR "/db/settings.xml", path_ / "db/settings.xml",
                      fs::copy_options::overwrite_existing);
    }

    ~DataFolder() {
        std::error_code failure;
        fs::remove_all(path_, failure);
    }

    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;

    [[nodiscard]] host::Paths paths() const { return host::Paths(path_.native()); }

private:
    fs::path path_;
};

void getSetting(benchmark::State& state) {
    const DataFolder folder;
    const host::Paths paths = folder.paths();
    config::clsXML xml;
    config::Settings settings(paths, xml);
    for (auto round : state) {
        benchmark::DoNotOptimize(settings.getSetting("CFDT"));
    }
}

void getSettings(benchmark::State& state) {
    const DataFolder folder;
    const host::Paths paths = folder.paths();
    config::clsXML xml;
    config::Settings settings(paths, xml);
    player::PlayerState start;
    const host::Dispatcher dispatcher;
    host::VirtualClock clock(dispatcher);
    player::StoredSettings stored(settings, start, clock);
    for (auto round : state) {
        stored.getSettings();
    }
}

void saveSetting(benchmark::State& state) {
    const DataFolder folder;
    const host::Paths paths = folder.paths();
    config::clsXML xml;
    config::Settings settings(paths, xml);
    int volume = 0;
    for (auto round : state) {
        settings.saveSetting("CVL", std::to_string(volume++ % 100));
    }
}

void saveUnchanged(benchmark::State& state) {
    const DataFolder folder;
    const host::Paths paths = folder.paths();
    config::clsXML xml;
    config::Settings settings(paths, xml);
    for (auto round : state) {
        settings.saveSetting("CVL", "80");
    }
}

void saveLog(benchmark::State& state) {
    const DataFolder folder;
    const host::Paths paths = folder.paths();
    const host::SystemClock clock;
    const host::OperatingSystem system = host::OperatingSystem::current();
    const config::ErrHandler log(paths, clock, system);
    for (auto round : state) {
        log.SaveLog("Type mismatch", 13, "Player", "Next_track");
    }
}

BENCHMARK(getSetting);
BENCHMARK(getSettings);
BENCHMARK(saveSetting);
BENCHMARK(saveUnchanged);
BENCHMARK(saveLog);

} // namespace

BENCHMARK_MAIN();
