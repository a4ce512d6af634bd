// SPDX-License-Identifier: GPL-3.0-or-later
// An engine whose drives a test makes up, or whose drives are images of the media.
#pragma once

#include "sound/engine/EngineRig.h"
#include "support/sound/FakeCdDrive.h"

#include <memory>
#include <string>
#include <vector>

namespace tovik::sound::test {

using tovik::test::DriveScript;

/// A contents table of audio tracks of so many sectors, one behind the other; below 0: with data.
[[nodiscard]] DiscToc tocOf(const std::vector<std::int32_t>& sectors);

/// The bytes of sectors of a made-up disc.
[[nodiscard]] std::vector<std::byte> sectorsOf(std::int32_t first, std::int32_t count);

/// The same as the engine plays them.
[[nodiscard]] Stereo soundOf(std::span<const std::byte> bytes);

/// Waits until the engine has looked at its drives.
void awaitLook(SoundLibrary& engine);

/// An engine with one made-up drive that has been looked at.
struct DiscRig {
    explicit DiscRig(const DiscToc& toc, RigSetup setup = {});

    std::shared_ptr<DriveScript> script = std::make_shared<DriveScript>();
    EngineRig rig;
    SoundLibrary& engine = rig.engine;
};

/// Takes a decoding channel to its end; fails when that does not come within 10 s.
[[nodiscard]] std::vector<std::byte> takeAll(SoundLibrary& engine, Handle channel,
                                             std::uint32_t block = 20000);

/// Flags of a track that is ripped, and of one that is heard.
inline constexpr std::uint32_t kRip = 0x240000;
inline constexpr std::uint32_t kHeard = 327680;

} // namespace tovik::sound::test
