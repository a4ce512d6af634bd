// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/RenderRig.h"

#include "sound/output/WavFile.h"
#include "sound/output/WavWriter.h"
#include "support/skin/TestSkin.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <stdexcept>

namespace tovik::test {

namespace fs = std::filesystem;

namespace {

constexpr const char* kSettings = "data/db/settings.xml";

std::size_t framesOf(double seconds) {
    return static_cast<std::size_t>(std::llround(seconds * kFramesASecond));
}

} // namespace

Samples noise(double seconds, unsigned seed) {
    std::mt19937 random(seed);
    Samples samples(2 * framesOf(seconds));
    for (float& sample : samples) {
        // 1 to 2^16, half of them below zero.
        const auto number = static_cast<float>((random() & 0xFFFFU) + 1);
        sample = ((random() & 1U) != 0 ? 0.4F : -0.4F) * number / 65536.0F;
    }
    return samples;
}

Samples silence(double seconds) {
    return Samples(2 * framesOf(seconds));
}

Samples joined(Samples first, const Samples& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

void addFading(Samples& mix, const Samples& track, double start, double fadeStart,
               double fadeSeconds) {
    const std::size_t from = 2 * framesOf(start);
    const double fade = std::max(fadeSeconds * kFramesASecond, 1.0);
    mix.resize(std::max(mix.size(), from + track.size()));
    for (std::size_t i = 0; i < track.size(); ++i) {
        const double faded = static_cast<double>((from + i) / 2) - fadeStart * kFramesASecond;
        mix[from + i] += track[i] * static_cast<float>(std::clamp(1.0 - faded / fade, 0.0, 1.0));
    }
}

void add(Samples& mix, const Samples& track, double start) {
    addFading(mix, track, start, 1e9, 1);
}

float largestDifference(const Samples& a, const Samples& b) {
    if (a.empty() || b.empty()) {
        return std::numeric_limits<float>::infinity();
    }
    float largest = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        largest = std::max(largest, std::abs(a[i] - b[i]));
    }
    return largest;
}

std::size_t silentFrames(const Samples& mix, double from) {
    std::size_t frames = 0;
    for (std::size_t i = 2 * framesOf(from); i + 1 < mix.size(); i += 2, ++frames) {
        if (mix[i] != 0 || mix[i + 1] != 0) {
            break;
        }
    }
    return frames;
}

RenderRig::RenderRig() {
    fs::create_directories(folder_ / "data/db");
    fs::copy_file(std::string(TOVIK_DATA_DIR) + "/db/settings.xml", folder_ / kSettings);
    fs::permissions(folder_ / kSettings, fs::perms::owner_write, fs::perm_options::add);
    fs::create_symlink(std::string(TOVIK_DATA_DIR) + "/Languages", folder_ / "data/Languages");
    writeTestSkin(folder_ / "data");
    set("CVL", "100");
    set("CMF", "0"); // the player without comfort
}

RenderRig::~RenderRig() {
    // The start made the data folder the current one, and that one goes now.
    fs::current_path("/");
}

void RenderRig::set(const std::string& key, const std::string& text) const {
    std::string bytes = folder_.read(kSettings);
    const std::size_t begin = bytes.find("<" + key + ">");
    const std::size_t end = bytes.find("</" + key + ">");
    if (begin == std::string::npos || end == std::string::npos) {
        throw std::runtime_error("no element " + key);
    }
    bytes.replace(begin, end - begin, "<" + key + ">" + text);
    folder_.write(kSettings, bytes);
}

std::string RenderRig::wav(const std::string& name, const Samples& samples) const {
    std::string path = folder_ / name;
    sound::WavWriter writer(path, sound::kMixRate, 2);
    writer.write(samples);
    writer.close();
    return path;
}

void RenderRig::start(const std::vector<std::string>& paths) {
    // What a render before left goes from top to bottom.
    loop_.reset();
    player_.reset();
    engine_.reset();
    host_ = std::make_unique<host::RenderHost>(folder_ / "data",
                                               host::OperatingSystem{.major = 6, .minor = 1}, "");
    auto output = std::make_unique<sound::WavOutput>(folder_ / "out.wav");
    output_ = output.get();
    engine_ = std::make_unique<sound::Engine>(
        std::move(output), sound::EngineOptions{.feeder = sound::FeederMode::inCaller});
    // A command line keeps the saved list from being read.
    player_ = std::make_unique<app::frmPlayer>(
        host_->host(), *engine_, window_, windows_, events_,
        app::StartOptions{.commandLine = "\"" + paths.front() + "\"", .checkInstance = false});
    loop_ = std::make_unique<app::RenderLoop>(host_->clock(), *output_);
    player_->Form_Initialize();
    player_->Form_Load();
    for (auto path = paths.begin() + 1; path != paths.end(); ++path) {
        player_->stdSS().AddItem("", *path, fs::path(*path).filename().string(), "00:00", 0);
    }
}

void RenderRig::renderTo(double seconds) {
    const std::int64_t last = std::llround(seconds * 1000);
    while (host_->clock().monotonicMs() < last) {
        loop_->step(last);
    }
}

Samples RenderRig::finish() {
    output_->close();
    const auto file = sound::readWav(folder_ / "out.wav");
    if (!file) {
        throw std::runtime_error("nothing was rendered");
    }
    return file->samples;
}

} // namespace tovik::test
