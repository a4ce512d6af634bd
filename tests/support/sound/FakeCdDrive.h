// SPDX-License-Identifier: GPL-3.0-or-later
// A drive without a drive: a test says what is in it, and what goes wrong. The script may be
// changed at any time on any thread.
#pragma once

#include "sound/cd/DriveOptions.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace tovik::test {

/// What is in a drive and how it behaves; shared by the test and the drives of an engine.
class DriveScript {
public:
    /// What a test may set, with `change`.
    struct Facts {
        sound::DiscLook disc;              ///< what is in it
        bool gone = false;                 ///< the drive itself was unplugged
        bool changed = false;              ///< told once by `discChanged`
        std::set<std::int32_t> unreadable; ///< sectors
        std::chrono::milliseconds slow{0}; ///< what each read takes
        std::size_t mostSectors = 0;       ///< that one read gives; 0: all
        std::int32_t opensAt = -1;         ///< reading that sector, the tray is opened
        bool hangs = false;                ///< reads and looks wait until this is false
        bool refusesVerified = false;
        bool refusesDoor = false;
        // What was done.
        std::vector<sound::DoorAction> doors;
        int looks = 0;
        int reads = 0;         ///< plain ones and verified ones
        int verifiedReads = 0; ///< verified ones
    };

    template <typename Change>
    void change(Change change) {
        const std::lock_guard lock(mutex_);
        change(facts_);
        changed_.notify_all();
    }

    [[nodiscard]] Facts facts() const {
        const std::lock_guard lock(mutex_);
        return facts_;
    }

    /// Puts a disc in, or takes it out (no tracks).
    void insert(sound::DiscToc toc, std::string text = {});

    /// What the disc holds in a sector: each frame another value, the same at every read.
    [[nodiscard]] static std::vector<std::byte> sector(std::int32_t number);

    /// An engine's options for drives like these.
    [[nodiscard]] static sound::DriveOptions
    options(std::vector<std::shared_ptr<DriveScript>> drives);

private:
    friend class FakeCdDrive;

    [[nodiscard]] sound::DiscLook look();
    [[nodiscard]] bool takeChanged();
    [[nodiscard]] sound::SectorRead read(std::int32_t sector, std::span<std::byte> bytes);
    [[nodiscard]] bool door(sound::DoorAction action);

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    Facts facts_;
};

} // namespace tovik::test
