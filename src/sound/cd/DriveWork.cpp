// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/DriveWork.h"

#include "sound/cd/DriveAnswer.h"

#include <pthread.h>

#include <algorithm>
#include <utility>

namespace tovik::sound {

void DriveWork::look() {
    ++looks_;
    post([this](const auto& /*drive*/) {
        lookNow();
        --looks_;
    });
}

void DriveWork::watch(bool on) {
    const base::MutexLock lock(mutex_);
    watched_ = on;
    changed_.notifyAll();
}

DriveView DriveWork::view() const {
    const base::MutexLock lock(mutex_);
    return view_;
}

void DriveWork::post(Job job) {
    const base::MutexLock lock(mutex_);
    if (!ending_) {
        jobs_.push_back(std::move(job));
        changed_.notifyAll();
    }
}

void DriveWork::door(DoorAction action) {
    post([this, action](const auto& drive) {
        if (drive != nullptr && drive->door(action)) {
            locked_ = action == DoorAction::lock || (locked_ && action != DoorAction::unlock);
        }
    });
}

void DriveWork::stop() {
    std::deque<Job> dropped; // dies outside of the lock
    const base::MutexLock lock(mutex_);
    ending_ = true;
    dropped.swap(jobs_);
    changed_.notifyAll();
}

DriveWork::Sectors DriveWork::readNow(CdDrive* drive, std::uint32_t discNumber, std::int32_t sector,
                                      std::size_t size) {
    Sectors sectors;
    if (drive == nullptr) {
        sectors.result.trouble = DiscTrouble::noDrive;
    } else if (!isThere(discNumber)) {
        sectors.result.trouble = DiscTrouble::noDisc;
    } else {
        sectors.bytes.resize(size);
        sectors.result = drive->read(sector, sectors.bytes);
    }
    if (sectors.result.trouble != DiscTrouble::none) {
        check(); // perhaps it could not be read because there is nothing to be read any more
        if (sectors.result.trouble == DiscTrouble::unreadable && !isThere(discNumber)) {
            sectors.result.trouble = DiscTrouble::noDisc;
        }
    }
    return sectors;
}

SectorRead DriveWork::read(std::uint32_t discNumber, std::int32_t sector,
                           std::span<std::byte> bytes, const std::stop_token& calledOff) {
    using Answer = DriveAnswer<Sectors>;
    const auto answer = std::make_shared<Answer>();
    post([this, pledge = std::make_shared<Answer::Pledge>(answer), discNumber, sector,
          size = bytes.size()](const auto& drive) {
        pledge->give(readNow(drive.get(), discNumber, sector, size));
    });
    const auto sectors = answer->wait(calledOff);
    if (!sectors) {
        return {.trouble = DiscTrouble::noDrive};
    }
    std::ranges::copy(std::span(sectors->bytes).first(sectors->result.sectors * kSectorBytes),
                      bytes.begin());
    return sectors->result;
}

std::optional<DriveView> DriveWork::viewOnceLooked(const std::stop_token& calledOff) {
    using Answer = DriveAnswer<DriveView>;
    const auto answer = std::make_shared<Answer>();
    post([this, pledge = std::make_shared<Answer::Pledge>(answer)](const auto& /*drive*/) {
        if (view().discNumber == 0) {
            lookNow();
        } else {
            check();
        }
        pledge->give(view());
    });
    return answer->wait(calledOff);
}

bool DriveWork::isThere(std::uint32_t discNumber) const {
    const base::MutexLock lock(mutex_);
    return view_.disc.toc && view_.discNumber == discNumber;
}

void DriveWork::check() {
    {
        const base::MutexLock lock(mutex_);
        nextCheck_ = std::chrono::steady_clock::now() + watchPeriod_;
    }
    if (drive_ == nullptr || drive_->discChanged()) {
        lookNow();
    }
}

void DriveWork::lookNow() {
    if (drive_ == nullptr) {
        drive_ = found_.open();
    }
    if (drive_ == nullptr) {
        DriveView nothing;
        nothing.description = found_.name;
        store(std::move(nothing));
        return;
    }
    static_cast<void>(drive_->discChanged()); // what it would tell is looked at now
    DriveView view;
    view.disc = drive_->look();
    view.description = drive_->description();
    view.facts = drive_->facts();
    store(std::move(view));
}

void DriveWork::store(DriveView view) {
    const base::MutexLock lock(mutex_);
    const bool same = view_.discNumber > 0 && view_.disc.toc == view.disc.toc &&
                      view_.disc.text == view.disc.text;
    view.discNumber = same ? view_.discNumber : view_.discNumber + 1;
    view_ = std::move(view);
}

/// A drive that is watched or read looks from time to time what is in it.
bool DriveWork::mayCheck() {
    return (watched_ || !jobs_.empty()) && view_.discNumber > 0 &&
           std::chrono::steady_clock::now() >= nextCheck_;
}

void DriveWork::serve() {
    ::pthread_setname_np(::pthread_self(), "drive");
    live();
    if (locked_) {
        drive_->door(DoorAction::unlock); // who was to do it came too late
    }
}

void DriveWork::live() {
    const base::MutexLock lock(mutex_);
    while (!ending_) {
        if (mayCheck()) {
            const base::MutexUnlock unlock(mutex_);
            check();
        }
        if (ending_) {
            return;
        }
        if (!jobs_.empty()) {
            Job job = std::move(jobs_.front());
            jobs_.pop_front();
            const base::MutexUnlock unlock(mutex_);
            job(drive_);
            job = nullptr; // with what it holds, outside of the lock
        } else if (watched_ && view_.discNumber > 0) {
            static_cast<void>(changed_.waitUntil(mutex_, nextCheck_));
        } else {
            changed_.wait(mutex_);
        }
    }
}

} // namespace tovik::sound
