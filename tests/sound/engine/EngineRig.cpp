// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/EngineRig.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace tovik::sound::test {

namespace {

std::unique_ptr<SimulatedOutput> makeDevice(const RigSetup& setup, Stereo& taken) {
    SimulatedOutput::Settings settings;
    settings.blockFrames = setup.blockFrames;
    settings.latencyFrames = setup.latencyFrames;
    settings.queue = setup.queue;
    settings.opensPaused = setup.opensPaused;
    settings.decodesAhead = setup.feeder == FeederMode::inCaller;
    if (setup.keepSamples) {
        settings.sink = [&taken](std::span<const float> block) {
            taken.insert(taken.end(), block.begin(), block.end());
        };
    }
    return std::make_unique<SimulatedOutput>(settings);
}

EngineOptions optionsOf(const RigSetup& setup, DeviceObserver& observer) {
    EngineOptions options;
    options.feeder = setup.feeder;
    options.observer = &observer;
    options.keeperTimes = setup.times;
    options.openPatience = setup.openPatience;
    options.openFile = setup.openFile;
    options.drives = setup.drives;
    options.visualHost = setup.visualHost;
    return options;
}

} // namespace

EngineRig::EngineRig(const RigSetup& setup)
    : owned_(makeDevice(setup, taken_)), device(*owned_),
      made_(std::move(owned_), optionsOf(setup, observer)), engine(made_) {
    if (setup.initialize) {
        EXPECT_TRUE(init());
    }
}

Stereo EngineRig::render(std::size_t frames) {
    taken_.clear();
    taken_.reserve(frames * 2);
    device.advance(frames);
    return std::exchange(taken_, {});
}

Handle EngineRig::open(const std::string& name, std::uint32_t flags) {
    const auto& files = allMedia();
    const auto file = std::ranges::find(files, name, &MediaFile::name);
    EXPECT_NE(file, files.end()) << name;
    const std::string path = mediaPath(name);
    Handle channel = kNoHandle;
    switch (familyOf(*file)) {
    case FormatFamily::stream:
        channel = engine.BASS_StreamCreateFile(false, path, 0, 0, flags);
        break;
    case FormatFamily::music:
        channel = engine.BASS_MusicLoad(false, path, 0, 0, flags, 44100);
        break;
    case FormatFamily::wma:
        channel = engine.BASS_WMA_StreamCreateFile(false, path, 0, 0, flags);
        break;
    case FormatFamily::flac:
        channel = engine.BASS_FLAC_StreamCreateFile(false, path, 0, 0, flags);
        break;
    }
    EXPECT_NE(channel, kNoHandle) << name;
    return channel;
}

Handle EngineRig::openStream(const std::string& path, std::uint32_t flags) {
    const Handle channel = engine.BASS_StreamCreateFile(false, path, 0, 0, flags);
    EXPECT_NE(channel, kNoHandle) << path;
    return channel;
}

Handle EngineRig::play(const std::string& name, std::uint32_t flags) {
    const Handle channel = open(name, flags);
    EXPECT_TRUE(start(channel)) << name;
    return channel;
}

Handle EngineRig::playStream(const std::string& path, std::uint32_t flags) {
    const Handle channel = openStream(path, flags);
    EXPECT_TRUE(start(channel)) << path;
    return channel;
}

bool EngineRig::start(Handle channel) {
    return engine.BASS_StreamPlay(channel, false, 0) || engine.BASS_MusicPlay(channel);
}

std::int64_t EngineRig::length(Handle channel) {
    const std::int64_t stream = engine.BASS_StreamGetLength(channel);
    return stream >= 0 ? stream : engine.BASS_MusicGetLength(channel, true);
}

Stereo EngineRig::renderToEnd(Handle channel, std::size_t mostFrames) {
    constexpr std::size_t kStep = 4096;
    Stereo all;
    while (engine.BASS_ChannelIsActive(channel) != Activity::stopped &&
           all.size() < mostFrames * 2) {
        const Stereo part = render(kStep);
        all.insert(all.end(), part.begin(), part.end());
    }
    EXPECT_EQ(engine.BASS_ChannelIsActive(channel), Activity::stopped);
    return all;
}

} // namespace tovik::sound::test
