// SPDX-License-Identifier: GPL-3.0-or-later
// How fast tracks of a disc are read, from an image of two minutes of noise: with verification, as
// a rip reads ("x" is the multiple of real time), and from the start of a track to its first sound.
#include "sound/engine/Engine.h"
#include "sound/engine/MachineDrives.h"
#include "sound/output/SimulatedOutput.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tovik::sound;

constexpr int kSeconds = 120;
constexpr std::uint32_t kRip = 0x240000;
constexpr std::uint32_t kHeard = 327680;

/// The image, made once and gone with the program.
class Image {
public:
    Image() : folder_(std::filesystem::temp_directory_path() / "tovik_cd_bench") {
        std::filesystem::create_directories(folder_);
        std::ofstream(sheet()) << "FILE \"disc.bin\" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 "
                                  "00:00:00\n";
        std::mt19937 random(1);
        std::vector<std::uint32_t> second(44100);
        std::ofstream file(folder_ / "disc.bin", std::ios::binary);
        for (int i = 0; i < kSeconds; ++i) {
            std::ranges::generate(second, [&] { return static_cast<std::uint32_t>(random()); });
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): samples as bytes
            file.write(reinterpret_cast<const char*>(second.data()),
                       static_cast<std::streamsize>(second.size() * sizeof(std::uint32_t)));
        }
    }

    ~Image() {
        std::error_code error;
        std::filesystem::remove_all(folder_, error);
    }

    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    [[nodiscard]] std::string sheet() const { return folder_ / "disc.cue"; }

private:
    std::filesystem::path folder_;
};

/// An engine whose last drive holds the image.
struct Rig {
    explicit Rig(const Image& image)
        : Rig(image, std::make_unique<SimulatedOutput>(
                         SimulatedOutput::Settings{.sink = [this](std::span<const float> block) {
                             sounds = sounds ||
                                      std::ranges::any_of(block, [](float x) { return x != 0; });
                         }})) {}

    Rig(const Image& image, std::unique_ptr<SimulatedOutput> owned)
        : device(*owned), made(std::move(owned), {.drives = machineDrives({image.sheet()})}),
          engine(made) {
        static_cast<void>(engine.BASS_Init(1, 44100, 0, 0, 0));
        engine.lookAtDrives();
        while (engine.lookingAtDrives()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        while (engine.BASS_CD_GetDriveLetter(drive + 1) >= 0) {
            ++drive;
        }
    }

    bool sounds = false;
    SimulatedOutput& device;
    Engine made;
    SoundLibrary& engine;
    std::uint32_t drive = 0;
};

void ripRead(benchmark::State& state) {
    const Image image;
    Rig rig(image);
    std::vector<std::byte> buffer(static_cast<std::size_t>(state.range(0)));
    std::int64_t bytes = 0;
    for (auto round : state) {
        const Handle track = rig.engine.BASS_CD_StreamCreate(rig.drive, 0, kRip);
        if (track == kNoHandle) {
            state.SkipWithError("the image does not open");
            return;
        }
        while (rig.engine.BASS_ChannelIsActive(track) != Activity::stopped) {
            bytes += rig.engine.BASS_ChannelGetData(track, buffer.data(),
                                                    static_cast<std::uint32_t>(buffer.size()));
        }
        rig.engine.BASS_StreamFree(track);
    }
    state.counters["x"] =
        benchmark::Counter(static_cast<double>(bytes) / 176400.0, benchmark::Counter::kIsRate);
}

void startOfTrack(benchmark::State& state) {
    const Image image;
    Rig rig(image);
    for (auto round : state) {
        rig.sounds = false;
        const Handle track = rig.engine.BASS_CD_StreamCreate(rig.drive, 0, kHeard);
        rig.engine.BASS_StreamPlay(track, true, 0);
        while (!rig.sounds) {
            rig.device.advance(64);
        }
        state.PauseTiming();
        rig.engine.BASS_StreamFree(track);
        rig.device.advance(44100);
        state.ResumeTiming();
    }
}

BENCHMARK(ripRead)->Arg(20000)->Arg(262144)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(startOfTrack)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
