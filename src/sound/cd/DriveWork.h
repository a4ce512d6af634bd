// SPDX-License-Identifier: GPL-3.0-or-later
// A drive and the thread that it has to itself: whatever is asked of the drive is done there, one
// thing after the other, so that a drive that does not answer holds up who waits for it and nobody
// else. Any thread, except where told; no lock is held while the drive is waited for.
#pragma once

#include "base/Mutex.h"
#include "sound/cd/DriveOptions.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

namespace tovik::sound {

/// What was found when a drive was last looked at.
struct DriveView {
    std::string description;
    DriveFacts facts;
    DiscLook disc;
    std::uint32_t discNumber = 0; ///< grows with each other disc, none among them; 0: never looked
};

class DriveWork {
public:
    /// What is done on the drive's thread. The drive is null when it could not be opened.
    using Job = std::function<void(const std::shared_ptr<CdDrive>& drive)>;

    DriveWork(FoundDrive found, std::chrono::milliseconds watchPeriod)
        : found_(std::move(found)), watchPeriod_(watchPeriod) {
        view_.description = found_.name; // until it has answered
    }

    [[nodiscard]] const std::string& name() const noexcept { return found_.name; }

    // Returns at once -----------------------------------------------------------------------------

    /// Begins to look which disc is in the drive.
    void look();

    /// A look that was begun has not come to its end.
    [[nodiscard]] bool looking() const noexcept { return looks_.load() > 0; }

    /// While it is on, the drive looks by itself for another disc.
    void watch(bool on);

    [[nodiscard]] DriveView view() const;

    /// Done behind what is waiting already; not at all once the thread is told to end.
    void post(Job job);

    /// Opens, closes, locks or unlocks the door behind what is waiting already, as far as the drive
    /// can. A door that is still locked when the thread ends is unlocked then.
    void door(DoorAction action);

    /// The thread ends as soon as its drive lets it.
    void stop();

    // Waits for the drive -------------------------------------------------------------------------

    /// See CdDrive::read. A disc other than `discNumber` is none. Gives up, as without a drive,
    /// when a stop is requested or the thread ends.
    [[nodiscard]] SectorRead read(std::uint32_t discNumber, std::int32_t sector,
                                  std::span<std::byte> bytes, const std::stop_token& calledOff);

    /// Looks at a drive that was not looked at yet, and at one that may have another disc; nothing
    /// when it gives up.
    [[nodiscard]] std::optional<DriveView> viewOnceLooked(const std::stop_token& calledOff);

    /// Whether the disc that was found in it last is this one.
    [[nodiscard]] bool isThere(std::uint32_t discNumber) const;

    /// The drive's thread: looks at the disc when the drive says that it may be another one.
    void check();

    /// The drive's thread: looks at the disc.
    void lookNow();

    /// The life of the drive's thread.
    void serve();

private:
    struct Sectors {
        SectorRead result;
        std::vector<std::byte> bytes;
    };

    [[nodiscard]] Sectors readNow(CdDrive* drive, std::uint32_t discNumber, std::int32_t sector,
                                  std::size_t size);
    [[nodiscard]] bool mayCheck() TOVIK_REQUIRES(mutex_);
    void live();
    void store(DriveView view);

    const FoundDrive found_;
    const std::chrono::milliseconds watchPeriod_;
    std::shared_ptr<CdDrive> drive_; ///< of the drive's thread alone
    bool locked_ = false;            ///< by us; of that thread, too
    std::atomic<int> looks_ = 0;     ///< begun and not ended

    mutable base::Mutex mutex_; ///< never held while the drive is asked
    base::Condition changed_;   ///< there is something to do
    std::deque<Job> jobs_ TOVIK_GUARDED_BY(mutex_);
    DriveView view_ TOVIK_GUARDED_BY(mutex_);
    bool watched_ TOVIK_GUARDED_BY(mutex_) = false;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    std::chrono::steady_clock::time_point nextCheck_ TOVIK_GUARDED_BY(mutex_);
};

} // namespace tovik::sound
