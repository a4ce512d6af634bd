// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/DiscRig.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <utility>

namespace tovik::sound::test {

namespace {

RigSetup withDrive(RigSetup setup, const std::shared_ptr<DriveScript>& script) {
    const auto period = setup.drives.watchPeriod;
    setup.drives = DriveScript::options({script});
    setup.drives.watchPeriod = period;
    return setup;
}

} // namespace

DiscToc tocOf(const std::vector<std::int32_t>& sectors) {
    DiscToc toc;
    for (const std::int32_t count : sectors) {
        toc.tracks.push_back(
            {.firstSector = toc.leadOut, .sectors = std::abs(count), .isData = count < 0});
        toc.leadOut += std::abs(count);
    }
    return toc;
}

std::vector<std::byte> sectorsOf(std::int32_t first, std::int32_t count) {
    std::vector<std::byte> bytes;
    for (std::int32_t i = 0; i < count; ++i) {
        const auto sector = DriveScript::sector(first + i);
        bytes.insert(bytes.end(), sector.begin(), sector.end());
    }
    return bytes;
}

Stereo soundOf(std::span<const std::byte> bytes) {
    constexpr float kFullScale = 32768.0F;
    Stereo sound;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const int value = std::to_integer<int>(bytes[i]) + 256 * std::to_integer<int>(bytes[i + 1]);
        sound.push_back(static_cast<float>(value < 32768 ? value : value - 65536) / kFullScale);
    }
    return sound;
}

void awaitLook(SoundLibrary& engine) {
    engine.lookAtDrives();
    EXPECT_TRUE(eventually([&] { return !engine.lookingAtDrives(); }));
}

DiscRig::DiscRig(const DiscToc& toc, RigSetup setup) : rig(withDrive(std::move(setup), script)) {
    script->insert(toc);
    awaitLook(rig.engine);
}

std::vector<std::byte> takeAll(SoundLibrary& engine, Handle channel, std::uint32_t block) {
    std::vector<std::byte> all;
    std::vector<std::byte> buffer(block);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (engine.BASS_ChannelIsActive(channel) != Activity::stopped) {
        const std::int32_t got = engine.BASS_ChannelGetData(channel, buffer.data(), block);
        if (got < 0 || std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "reading ended with " << got << " at byte " << all.size();
            break;
        }
        all.insert(all.end(), buffer.begin(), buffer.begin() + got);
    }
    return all;
}

} // namespace tovik::sound::test
