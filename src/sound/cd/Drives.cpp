// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/Drives.h"

#include "base/Mutex.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tovik::sound {

/// What the thread that looks for drives shares with who asks.
class Drives::Shared {
public:
    explicit Shared(DriveOptions options) : options_(std::move(options)) {}

    using List = std::vector<std::shared_ptr<DriveWork>>;

    void find();

    [[nodiscard]] List list() const {
        const base::MutexLock lock(mutex_);
        return list_;
    }

    /// No drive is added any more; those that there are are told to end.
    void end() {
        const base::MutexLock lock(mutex_);
        ended_ = true;
        for (const auto& drive : list_) {
            drive->stop();
        }
    }

    std::atomic<int> searches = 0; ///< begun and not ended

private:
    [[nodiscard]] std::shared_ptr<DriveWork> keepOrMake(FoundDrive found) const
        TOVIK_REQUIRES(mutex_);

    const DriveOptions options_;
    mutable base::Mutex mutex_;
    List list_ TOVIK_GUARDED_BY(mutex_);
    bool ended_ TOVIK_GUARDED_BY(mutex_) = false;
};

std::shared_ptr<DriveWork> Drives::Shared::keepOrMake(FoundDrive found) const {
    const auto known =
        std::ranges::find_if(list_, [&](const auto& drive) { return drive->name() == found.name; });
    if (known != list_.end()) {
        return *known;
    }
    auto made = std::make_shared<DriveWork>(std::move(found), options_.watchPeriod);
    try {
        std::thread([made] { made->serve(); }).detach();
    } catch (const std::system_error&) {
        return nullptr; // the system has no more threads
    }
    return made;
}

void Drives::Shared::find() {
    std::vector<FoundDrive> found;
    if (options_.find) {
        found = options_.find(options_.images);
    }
    if (found.size() > kMostDrives) {
        found.resize(kMostDrives);
    }
    const base::MutexLock lock(mutex_);
    if (ended_) {
        return;
    }
    List list;
    for (FoundDrive& drive : found) {
        if (auto work = keepOrMake(std::move(drive)); work != nullptr) {
            list.push_back(std::move(work));
        }
    }
    for (const auto& old : list_) {
        if (std::ranges::find(list, old) == list.end()) {
            old->stop();
        }
    }
    list_ = std::move(list);
    for (const auto& drive : list_) {
        drive->look();
    }
}

Drives::Drives(DriveOptions options) : shared_(std::make_shared<Shared>(std::move(options))) {}

Drives::~Drives() {
    shared_->end();
}

void Drives::look() {
    everLooked_ = true;
    ++shared_->searches;
    try {
        std::thread([shared = shared_] {
            shared->find();
            --shared->searches;
        }).detach();
    } catch (const std::system_error&) {
        --shared_->searches;
    }
}

bool Drives::looking() const {
    return shared_->searches > 0 ||
           std::ranges::any_of(shared_->list(), [](const auto& drive) { return drive->looking(); });
}

std::shared_ptr<DriveWork> Drives::find(std::uint32_t drive) const {
    const auto list = shared_->list();
    return drive < list.size() ? list[drive] : nullptr;
}

} // namespace tovik::sound
