// SPDX-License-Identifier: GPL-3.0-or-later
// How fast each format is decoded, and how long opening, seeking and scanning take. Wants the media
// of three minutes ("tests/media/make_media --bench") in the folder that TOVIK_MEDIA names.
#include "sound/decode/Decoder.h"
#include "sound/decode/Resampler.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <random>

namespace {

using namespace tovik::sound;

constexpr std::size_t kBlockFrames = 2048;

struct Sample {
    FormatFamily family;
    const char* name;
};

constexpr std::array kSamples = {
    Sample{FormatFamily::stream, "bench.mp3"}, Sample{FormatFamily::stream, "bench_cbr192.mp3"},
    Sample{FormatFamily::stream, "bench.ogg"}, Sample{FormatFamily::stream, "bench.wav"},
    Sample{FormatFamily::flac, "bench.flac"},  Sample{FormatFamily::wma, "bench.wma"},
    Sample{FormatFamily::music, "bench.xm"},   Sample{FormatFamily::music, "bench.it"},
    Sample{FormatFamily::music, "bench.mod"},
};

std::unique_ptr<Decoder> open(const Sample& sample) {
    const char* folder = std::getenv("TOVIK_MEDIA");
    const std::string path = std::string(folder == nullptr ? "." : folder) + "/" + sample.name;
    return std::move(openDecoder(sample.family, path).decoder);
}

void decode(benchmark::State& state, const Sample& sample) {
    double seconds = 0.0;
    for (auto round : state) {
        const auto decoder = open(sample);
        if (!decoder) {
            state.SkipWithError("no such media");
            return;
        }
        std::vector<float> block(kBlockFrames * static_cast<std::size_t>(decoder->channels()));
        while (const std::size_t got = decoder->read(block)) {
            seconds += static_cast<double>(got) / decoder->sampleRate();
        }
    }
    state.counters["times_real_time"] = benchmark::Counter(seconds, benchmark::Counter::kIsRate);
}

void openAndRead(benchmark::State& state, const Sample& sample) {
    std::array<float, 2 * kBlockFrames> block = {};
    for (auto round : state) {
        const auto decoder = open(sample);
        if (!decoder) {
            state.SkipWithError("no such media");
            return;
        }
        benchmark::DoNotOptimize(decoder->read(block));
    }
}

void seek(benchmark::State& state, const Sample& sample) {
    const auto decoder = open(sample);
    if (!decoder) {
        state.SkipWithError("no such media");
        return;
    }
    std::mt19937 random(1);
    std::uniform_int_distribution<std::int64_t> frames(0, decoder->lengthFrames());
    for (auto round : state) {
        benchmark::DoNotOptimize(decoder->seek(frames(random)));
    }
}

void scan(benchmark::State& state, const Sample& sample) {
    const auto decoder = open(sample);
    for (auto round : state) {
        const auto scan = decoder ? decoder->lengthScan() : nullptr;
        if (!scan) {
            state.SkipWithError("nothing to scan");
            return;
        }
        while (!scan->run(std::chrono::milliseconds(50))) {
        }
    }
}

void resample(benchmark::State& state) {
    const auto rate = static_cast<int>(state.range(0));
    const auto channels = static_cast<int>(state.range(1));
    const auto resampler = Resampler::create(rate, channels);
    const std::vector<float> in(kBlockFrames * static_cast<std::size_t>(channels), 0.1F);
    std::vector<float> out(2 * resampler->mostOutput(2 * kBlockFrames));
    double seconds = 0.0;
    for (auto round : state) {
        benchmark::DoNotOptimize(resampler->process(in, out));
        seconds += static_cast<double>(kBlockFrames) / rate;
    }
    state.counters["times_real_time"] = benchmark::Counter(seconds, benchmark::Counter::kIsRate);
}

void registerAll(const char* what, void (*run)(benchmark::State&, const Sample&)) {
    for (const Sample& sample : kSamples) {
        const std::string name = std::string(what) + "/" + sample.name;
        benchmark::RegisterBenchmark(name.c_str(), [run, &sample](benchmark::State& state) {
            run(state, sample);
        })->Unit(benchmark::kMillisecond);
    }
}

} // namespace

BENCHMARK(resample)->Args({48000, 2})->Args({48000, 1})->Args({96000, 2})->Args({22050, 2});

int main(int argc, char** argv) {
    registerAll("decode", &decode);
    registerAll("open_and_read", &openAndRead);
    registerAll("seek", &seek);
    registerAll("scan", &scan);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
