// SPDX-License-Identifier: GPL-3.0-or-later
// An engine over a simulated device that the test steps by hand. Decoding happens while it steps,
// so every run gives the same samples.
#pragma once

#include "sound/decode/Media.h"
#include "sound/engine/Engine.h"
#include "sound/output/KeeperRig.h"
#include "sound/output/SimulatedOutput.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tovik::sound::test {

/// Left, right, left, ...
using Stereo = std::vector<float>;

struct RigSetup {
    std::size_t blockFrames = 512;
    int latencyFrames = 0;
    QueueSettings queue = {}; ///< of a device that mixes ahead
    bool opensPaused = false; ///< that device
    FeederMode feeder = FeederMode::inCaller;
    bool initialize = true;
    bool keepSamples = true; ///< for `render`; costs memory in the callback
    KeeperTimes times = kNever;
    std::chrono::milliseconds openPatience = EngineOptions{}.openPatience;
    decltype(EngineOptions::openFile) openFile = EngineOptions{}.openFile;
    DriveOptions drives = {};
    std::string visualHost = {}; ///< empty: no plug-ins
};

class EngineRig {
public:
    explicit EngineRig(const RigSetup& setup = {});

    /// What the device takes in the next `frames` frames.
    Stereo render(std::size_t frames);

    /// Opens a file of the media with the operation that takes it; fails the test if it is refused.
    Handle open(const std::string& name, std::uint32_t flags = BASS_SAMPLE_FX);

    /// The same for any file, as a stream.
    Handle openStream(const std::string& path, std::uint32_t flags = BASS_SAMPLE_FX);

    /// Opens and starts.
    Handle play(const std::string& name, std::uint32_t flags = BASS_SAMPLE_FX);
    Handle playStream(const std::string& path, std::uint32_t flags = BASS_SAMPLE_FX);

    /// Starts a channel of either kind where it stands.
    bool start(Handle channel);

    /// Length of a channel of either kind, in bytes.
    std::int64_t length(Handle channel);

    /// Renders until the channel stands at its end, `mostFrames` at most.
    Stereo renderToEnd(Handle channel, std::size_t mostFrames = 2'000'000);

    bool init() { return engine.BASS_Init(1, 44100, 0, 0, 0); }

private:
    Stereo taken_;
    std::unique_ptr<SimulatedOutput> owned_;

public:
    CountingObserver observer;
    SimulatedOutput& device;

private:
    Engine made_;

public:
    SoundLibrary& engine;
};

} // namespace tovik::sound::test
