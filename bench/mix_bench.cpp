// SPDX-License-Identifier: GPL-3.0-or-later
// What the pieces of the mix cost: time a frame, and times real time on one core.
#include "sound/mix/ClipGuard.h"
#include "sound/mix/DenormalGuard.h"
#include "sound/mix/EqualizerBank.h"
#include "sound/mix/FrameRing.h"
#include "sound/mix/GainStage.h"
#include "sound/mix/LevelMeter.h"
#include "sound/mix/Spectrum.h"
#include "sound/mix/SpectrumTap.h"
#include "sound/mix/ToPcm16.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <random>
#include <vector>

namespace tovik::sound {
namespace {

constexpr double kRate = 44100.0;
constexpr std::size_t kBlockFrames = 512;
constexpr std::array<double, 10> kCentres{60, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};

std::vector<float> noise(std::size_t frames, float amplitude, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> sample(-amplitude, amplitude);
    std::vector<float> samples(frames * 2);
    std::generate(samples.begin(), samples.end(), [&] { return sample(random); });
    return samples;
}

/// Counts the frames of all rounds; the table shows them a second, and as times real time.
void countFrames(benchmark::State& state, std::size_t frames) {
    const double all = static_cast<double>(state.iterations()) * static_cast<double>(frames);
    state.counters["frames"] = benchmark::Counter(all, benchmark::Counter::kIsRate);
    state.counters["realtime"] = benchmark::Counter(all / kRate, benchmark::Counter::kIsRate);
}

/// Runs `process` on a fresh copy of the same noise again and again.
template <typename Process>
void onNoise(benchmark::State& state, std::size_t frames, float amplitude, Process process) {
    const DenormalGuard guard;
    const std::vector<float> source = noise(frames, amplitude);
    std::vector<float> block = source;
    for (auto round : state) {
        std::copy(source.begin(), source.end(), block.begin());
        process(std::span<float>(block));
        benchmark::DoNotOptimize(block.data());
        benchmark::ClobberMemory();
    }
    countFrames(state, frames);
}

/// Arguments: bands at work, frames a block.
void equalizer(benchmark::State& state) {
    EqualizerBank bank;
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.range(0)); ++i) {
        const double gainDb = i % 2 == 0 ? 6.0 : -6.0;
        bank.setBand(static_cast<int>(i), peakingFilter(kCentres[i], 15.0, gainDb, kRate), false);
    }
    onNoise(state, static_cast<std::size_t>(state.range(1)), 0.3F,
            [&](std::span<float> block) { bank.process(block); });
}

BENCHMARK(equalizer)
    ->ArgsProduct({{0, 2, 4, 10}, {kBlockFrames}})
    ->Args({10, 64})
    ->Args({10, 4096});

/// All bands on their way all the time.
void equalizerRamping(benchmark::State& state) {
    EqualizerBank bank;
    double gainDb = 6.0;
    onNoise(state, 224, 0.3F, [&](std::span<float> block) {
        gainDb = -gainDb;
        for (std::size_t i = 0; i < kCentres.size(); ++i) {
            bank.setBand(static_cast<int>(i), peakingFilter(kCentres[i], 15.0, gainDb, kRate));
        }
        bank.process(block);
    });
}

BENCHMARK(equalizerRamping);

void gainSettled(benchmark::State& state) {
    GainStage gain;
    gain.volumeTo(0.5F, 0);
    onNoise(state, kBlockFrames, 0.3F, [&](std::span<float> block) { gain.process(block); });
}

BENCHMARK(gainSettled);

void gainRamping(benchmark::State& state) {
    GainStage gain;
    gain.volumeTo(0.5F, std::int64_t{1} << 60U);
    onNoise(state, kBlockFrames, 0.3F, [&](std::span<float> block) { gain.process(block); });
}

BENCHMARK(gainRamping);

void levelMeter(benchmark::State& state) {
    onNoise(state, kBlockFrames, 0.3F, [](std::span<float> block) {
        benchmark::DoNotOptimize(packLevel(measureLevel(block)));
    });
}

BENCHMARK(levelMeter);

void clipGuardTransparent(benchmark::State& state) {
    ClipGuard guard;
    onNoise(state, kBlockFrames, 0.9F, [&](std::span<float> block) { guard.process(block); });
}

BENCHMARK(clipGuardTransparent);

void clipGuardAtWork(benchmark::State& state) {
    ClipGuard guard;
    onNoise(state, kBlockFrames, 2.0F, [&](std::span<float> block) { guard.process(block); });
}

BENCHMARK(clipGuardAtWork);

void toPcm(benchmark::State& state) {
    std::vector<std::int16_t> pcm(kBlockFrames * 2);
    onNoise(state, kBlockFrames, 1.1F, [&](std::span<float> block) {
        toPcm16(block, pcm);
        benchmark::DoNotOptimize(pcm.data());
    });
}

BENCHMARK(toPcm);

void frameRing(benchmark::State& state) {
    FrameRing ring(4096);
    onNoise(state, kBlockFrames, 0.3F, [&](std::span<float> block) {
        ring.write(block);
        ring.read(block);
    });
}

BENCHMARK(frameRing);

void spectrumTapWatched(benchmark::State& state) {
    std::size_t noted = 0;
    const auto tap = std::make_unique<SpectrumTap>();
    std::array<float, 1> newest{};
    onNoise(state, kBlockFrames, 0.3F, [&](std::span<float> block) {
        tap->look(newest, tap->written());
        noted = tap->write(noted, block);
    });
}

BENCHMARK(spectrumTapWatched);

/// One spectrum of 512 frames a round.
void spectrum(benchmark::State& state) {
    Spectrum meter;
    std::array<float, Spectrum::kSamples> mono{};
    std::array<float, Spectrum::kBins> bins{};
    std::copy_n(noise(Spectrum::kSamples, 0.3F).begin(), mono.size(), mono.begin());
    for (auto round : state) {
        meter.measure(mono, bins);
        benchmark::DoNotOptimize(bins.data());
    }
}

BENCHMARK(spectrum);

} // namespace
} // namespace tovik::sound

BENCHMARK_MAIN();
