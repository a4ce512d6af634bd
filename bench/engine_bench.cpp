// SPDX-License-Identifier: GPL-3.0-or-later
// How fast the engine is. "x" is the multiple of real time that one thread reaches, by its own
// time on the processor: decoding, ten
// bands and the mix of one file, two files with twenty bands, and the longest callback while a
// thread decodes ahead. TOVIK_MEDIA names the folder of the media, made with --bench.
#include "sound/engine/Engine.h"
#include "sound/output/SimulatedOutput.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tovik::sound;

constexpr int kBands = 10;

std::string media(const std::string& name) {
    const char* folder = std::getenv("TOVIK_MEDIA");
    return (folder != nullptr ? folder : "build/media") + ("/" + name);
}

/// An engine over a device that forgets what it takes.
struct Rig {
    explicit Rig(FeederMode mode)
        : Rig(mode, std::make_unique<SimulatedOutput>(SimulatedOutput::Settings{
                        .restsWhenIdle = false, .decodesAhead = mode == FeederMode::inCaller})) {}

    Rig(FeederMode mode, std::unique_ptr<SimulatedOutput> owned)
        : device(*owned), made(std::move(owned), {.feeder = mode}), engine(made) {
        static_cast<void>(engine.BASS_Init(1, 44100, 0, 0, 0));
    }

    Handle play(const std::string& name, int bands) {
        const std::string path = media(name);
        Handle channel = engine.BASS_StreamCreateFile(false, path, 0, 0, BASS_SAMPLE_FX);
        if (channel == kNoHandle) {
            channel = engine.BASS_MusicLoad(false, path, 0, 0, 0, 0);
        }
        if (channel == kNoHandle) {
            channel = engine.BASS_WMA_StreamCreateFile(false, path, 0, 0, BASS_SAMPLE_FX);
        }
        if (channel == kNoHandle) {
            channel = engine.BASS_FLAC_StreamCreateFile(false, path, 0, 0, BASS_SAMPLE_FX);
        }
        for (int band = 0; band < bands; ++band) {
            const Handle effect = engine.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
            const auto centre = static_cast<float>(31 << band);
            engine.BASS_FXSetParameters(effect, {centre, 15.0F, band % 2 == 0 ? 4.0F : -4.0F});
        }
        static_cast<void>(engine.BASS_StreamPlay(channel, false, 0) ||
                          engine.BASS_MusicPlay(channel));
        return channel;
    }

    SimulatedOutput& device;
    Engine made;
    SoundLibrary& engine;
};

/// `names` together, from their beginning to the end of the shortest.
void playThrough(benchmark::State& state, const std::vector<std::string>& names, int bands) {
    std::int64_t frames = 0;
    for (auto round : state) {
        state.PauseTiming();
        auto rig = std::make_unique<Rig>(FeederMode::inCaller);
        std::vector<Handle> channels;
        for (const std::string& name : names) {
            channels.push_back(rig->play(name, bands));
            if (channels.back() == kNoHandle) {
                state.SkipWithError("no such file: make the media with --bench");
                return;
            }
        }
        state.ResumeTiming();
        while (std::ranges::all_of(channels, [&](Handle channel) {
            return rig->engine.BASS_ChannelIsActive(channel) == Activity::playing;
        })) {
            frames += static_cast<std::int64_t>(rig->device.advance(4096));
        }
        state.PauseTiming();
        rig.reset();
        state.ResumeTiming();
    }
    state.counters["x"] =
        benchmark::Counter(static_cast<double>(frames) / kMixRate, benchmark::Counter::kIsRate);
}

/// Processor time of the calling thread so far, in microseconds.
double threadMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

/// A minute at the pace of a device, in blocks of 512 frames: processor time of the longest and the
/// mean callback in microseconds, and how many blocks ran dry.
void callbacks(benchmark::State& state) {
    constexpr std::size_t kBlock = 512;
    constexpr int kBlocks = 60 * kMixRate / static_cast<int>(kBlock);
    constexpr std::chrono::microseconds kPeriod(1'000'000 * static_cast<int>(kBlock) / kMixRate);
    std::vector<double> times;
    double dry = 0;
    for (auto round : state) {
        Rig rig(FeederMode::ownThread);
        const Handle first = rig.play("bench.mp3", kBands);
        const Handle second = rig.play("bench.ogg", kBands);
        auto due = std::chrono::steady_clock::now();
        for (int block = 0; block < kBlocks; ++block) {
            const double begin = threadMicroseconds();
            rig.device.advance(kBlock);
            times.push_back(threadMicroseconds() - begin);
            const bool stalled = rig.engine.BASS_ChannelIsActive(first) == Activity::stalled ||
                                 rig.engine.BASS_ChannelIsActive(second) == Activity::stalled;
            dry += stalled ? 1 : 0;
            due += kPeriod;
            std::this_thread::sleep_until(due);
        }
    }
    std::ranges::sort(times);
    const auto count = static_cast<double>(times.size());
    state.counters["longest_us"] = times.back();
    state.counters["99%_us"] = times[times.size() * 99 / 100];
    state.counters["mean_us"] = std::accumulate(times.begin(), times.end(), 0.0) / count;
    state.counters["dry"] = dry;
}

void add(const char* label, const std::vector<std::string>& names, int bands) {
    benchmark::RegisterBenchmark(label, playThrough, names, bands)->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    for (const char* kind : {"wav", "mp3", "ogg", "flac", "wma", "xm", "it", "mod"}) {
        const std::string name = std::string("bench.") + kind;
        add((std::string(kind) + "/mix").c_str(), {name}, 0);
        add((std::string(kind) + "/ten_bands+mix").c_str(), {name}, kBands);
    }
    add("wav+wav/twenty_bands+mix", {"bench.wav", "bench.wav"}, kBands);
    add("mp3+ogg/twenty_bands+mix", {"bench.mp3", "bench.ogg"}, kBands);
    benchmark::RegisterBenchmark("callback/mp3+ogg/twenty_bands", callbacks)
        ->Iterations(1)
        ->UseRealTime();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
