// SPDX-License-Identifier: GPL-3.0-or-later
// The whole player over the real sound engine, rendered on virtual time into a file of a test's
// own. Tracks are made of known samples.
#pragma once

#include "app/frmPlayer.h"
#include "app/RenderLoop.h"
#include "host/virtual/RenderHost.h"
#include "sound/engine/Engine.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tovik::test {

/// Left, right, ...
using Samples = std::vector<float>;

inline constexpr std::size_t kFramesASecond = 44100;

/// Noise from a seed, no sample of it 0 and none above 0.4.
[[nodiscard]] Samples noise(double seconds, unsigned seed);

[[nodiscard]] Samples silence(double seconds);

[[nodiscard]] Samples joined(Samples first, const Samples& second);

/// Adds `track` to `mix` from `start` seconds on, with a gain that goes in a straight line from 1
/// at `fadeStart` seconds of the mix to 0 after `fadeSeconds`.
void addFading(Samples& mix, const Samples& track, double start, double fadeStart,
               double fadeSeconds);
void add(Samples& mix, const Samples& track, double start);

/// The largest difference over the frames that both have; without any, infinite.
[[nodiscard]] float largestDifference(const Samples& a, const Samples& b);

/// How many frames from `from` seconds on are silent before the first that is not.
[[nodiscard]] std::size_t silentFrames(const Samples& mix, double from);

class RenderRig : public testing::Test {
protected:
    RenderRig();
    ~RenderRig() override;
    RenderRig(const RenderRig&) = delete;
    RenderRig& operator=(const RenderRig&) = delete;

    /// Replaces the text of a key; before `start`.
    void set(const std::string& key, const std::string& text) const;

    /// A float WAV file with these samples; its path.
    [[nodiscard]] std::string wav(const std::string& name, const Samples& samples) const;

    /// Starts the player with these rows, full volume; the first one plays from 0 s on.
    void start(const std::vector<std::string>& paths);

    /// Renders up to that many seconds from the start.
    void renderTo(double seconds);

    /// Ends the render and gives what came out.
    [[nodiscard]] Samples finish();

    [[nodiscard]] app::frmPlayer& player() { return *player_; }

private:
    TemporaryFolder folder_;
    std::unique_ptr<host::RenderHost> host_;
    sound::WavOutput* output_ = nullptr;
    std::unique_ptr<sound::Engine> engine_;
    window::PlayerWindow window_;
    window::WindowOpener windows_;
    player::TrackEvents events_;
    std::unique_ptr<app::frmPlayer> player_;
    std::unique_ptr<app::RenderLoop> loop_;
};

} // namespace tovik::test
