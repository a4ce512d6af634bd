// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/RipStream.h"

#include "base/Mutex.h"

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace tovik::sound {

namespace {

/// Sectors read before other wishes have their turn.
constexpr std::size_t kStepSectors = 32;

/// About 6 s lie ready at most; when half of that was taken the reading goes on.
constexpr std::size_t kMostBytes = std::size_t{1} << 20U;

} // namespace

/// What who takes shares with the drive's thread.
class RipStream::Work : public std::enable_shared_from_this<Work> {
public:
    Work(std::shared_ptr<DriveWork> drive, const DiscPlace& place)
        : drive_(std::move(drive)), place_(place), step_(kStepSectors * kSectorBytes) {}

    /// Reads some sectors on the drive's thread, and goes on as long as there is room.
    void post() {
        drive_->post([step = std::make_shared<Step>(shared_from_this())](const auto& drive) {
            step->run(drive);
        });
    }

    void close() {
        closed_ = true;
        // What reads the drive goes where the drive is used.
        drive_->post([work = shared_from_this()](const auto& /*drive*/) { work->letGo(); });
    }

    [[nodiscard]] std::size_t take(std::span<std::byte> bytes, std::chrono::milliseconds patience);

    [[nodiscard]] bool ended() const {
        const base::MutexLock lock(mutex_);
        return over_ && taken_ == ready_.size();
    }

    [[nodiscard]] DiscReport report() const { return health_.report(); }

private:
    /// A step that is waiting for its turn. One that never comes, since the drive's thread has
    /// ended, ends the track.
    class Step {
    public:
        explicit Step(std::shared_ptr<Work> work) : work_(std::move(work)) {}

        ~Step() {
            if (!done_) {
                work_->health_.note(DiscTrouble::noDrive);
                work_->tellOver();
            }
        }

        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

        void run(const std::shared_ptr<CdDrive>& drive) {
            done_ = true;
            work_->readStep(drive);
        }

    private:
        const std::shared_ptr<Work> work_;
        bool done_ = false;
    };

    void readStep(const std::shared_ptr<CdDrive>& drive);
    [[nodiscard]] SectorRead readNext(const std::shared_ptr<CdDrive>& drive);
    [[nodiscard]] bool keep(std::size_t sectors);
    void finish();
    void tellOver();

    void letGo() {
        reader_.reset();
        held_.reset();
    }

    const std::shared_ptr<DriveWork> drive_;
    const DiscPlace place_;
    TrackHealth health_;
    std::atomic<bool> closed_ = false;

    // Of the drive's thread.
    std::shared_ptr<CdDrive> held_; ///< outlives what reads it
    std::unique_ptr<VerifiedReader> reader_;
    std::vector<std::byte> step_;
    std::int32_t read_ = 0; ///< sectors

    mutable base::Mutex mutex_;
    base::Condition changed_;
    std::vector<std::byte> ready_ TOVIK_GUARDED_BY(mutex_);
    std::size_t taken_ TOVIK_GUARDED_BY(mutex_) = 0; ///< of what is ready
    bool resting_ TOVIK_GUARDED_BY(mutex_) = false;  ///< until there is room
    bool over_ TOVIK_GUARDED_BY(mutex_) = false;     ///< no more is read
};

SectorRead RipStream::Work::readNext(const std::shared_ptr<CdDrive>& drive) {
    if (drive == nullptr) {
        return {.trouble = DiscTrouble::noDrive};
    }
    if (!drive_->isThere(place_.discNumber)) {
        return {.trouble = DiscTrouble::noDisc};
    }
    if (reader_ == nullptr) {
        held_ = drive;
        reader_ = drive->verified(place_.firstSector, place_.sectors);
    }
    if (reader_ == nullptr) {
        return {.trouble = DiscTrouble::noDisc};
    }
    const auto wanted =
        std::min(kStepSectors, static_cast<std::size_t>(place_.sectors - read_)) * kSectorBytes;
    return reader_->read(std::span(step_).first(wanted));
}

void RipStream::Work::readStep(const std::shared_ptr<CdDrive>& drive) {
    if (closed_) {
        return;
    }
    const SectorRead got = readNext(drive);
    if (reader_ != nullptr) {
        const DiscReport counted = reader_->report();
        health_.setCounts(counted.lostSectors, counted.repaired);
    }
    if (got.sectors == 0) {
        health_.note(got.trouble == DiscTrouble::none ? DiscTrouble::noDisc : got.trouble);
        drive_->lookNow(); // that the disc has gone is told once, and the reader was told
        finish();
        return;
    }
    read_ += static_cast<std::int32_t>(got.sectors);
    const bool room = keep(got.sectors);
    if (read_ >= place_.sectors) {
        finish();
    } else if (room) {
        post();
    }
}

/// What was read lies ready; false when there is no room for more.
bool RipStream::Work::keep(std::size_t sectors) {
    const base::MutexLock lock(mutex_);
    if (taken_ >= ready_.size() / 2) {
        ready_.erase(ready_.begin(), ready_.begin() + static_cast<std::ptrdiff_t>(taken_));
        taken_ = 0;
    }
    const auto got = std::span(step_).first(sectors * kSectorBytes);
    ready_.insert(ready_.end(), got.begin(), got.end());
    resting_ = ready_.size() - taken_ >= kMostBytes;
    changed_.notifyAll();
    return !resting_;
}

void RipStream::Work::finish() {
    letGo();
    tellOver();
}

void RipStream::Work::tellOver() {
    const base::MutexLock lock(mutex_);
    over_ = true;
    changed_.notifyAll();
}

std::size_t RipStream::Work::take(std::span<std::byte> bytes, std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    bool goOn = false;
    std::size_t count = 0;
    {
        const base::MutexLock lock(mutex_);
        while (ready_.size() - taken_ < bytes.size() && !over_ && !resting_ &&
               changed_.waitUntil(mutex_, deadline)) {
        }
        count = std::min(bytes.size(), ready_.size() - taken_);
        std::copy_n(ready_.begin() + static_cast<std::ptrdiff_t>(taken_), count, bytes.begin());
        taken_ += count;
        goOn = resting_ && ready_.size() - taken_ <= kMostBytes / 2;
        resting_ = resting_ && !goOn;
    }
    if (goOn) {
        post();
    }
    return count;
}

RipStream::RipStream(std::shared_ptr<DriveWork> drive, const DiscPlace& place)
    : work_(std::make_shared<Work>(std::move(drive), place)),
      length_(std::int64_t{place.sectors} * static_cast<std::int64_t>(kSectorBytes)) {
    work_->post();
}

RipStream::~RipStream() {
    work_->close();
}

std::size_t RipStream::take(std::span<std::byte> bytes, std::chrono::milliseconds patience) {
    const std::size_t count = work_->take(bytes, patience);
    position_ += static_cast<std::int64_t>(count);
    return count;
}

bool RipStream::ended() const {
    return work_->ended();
}

DiscReport RipStream::report() const {
    return work_->report();
}

} // namespace tovik::sound
