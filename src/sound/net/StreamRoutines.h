// SPDX-License-Identifier: GPL-3.0-or-later
// The routines that hear of a stream. They are called by the thread of the stream and set and taken
// away on the interface thread; no lock is held while one runs.
#pragma once

#include "base/Mutex.h"
#include "sound/api/NetworkOperations.h"

#include <memory>
#include <utility>

namespace tovik::sound {

class StreamRoutines {
public:
    /// Interface thread, before the stream begins.
    StreamRoutines(DownloadRoutine routine, std::uintptr_t user)
        : download_(routine ? std::make_shared<const DownloadRoutine>(std::move(routine))
                            : nullptr),
          downloadUser_(user) {}

    /// Interface thread.
    void setMeta(MetaRoutine routine, std::uintptr_t user) {
        const base::MutexLock lock(mutex_);
        meta_ = routine ? std::make_shared<const MetaRoutine>(std::move(routine)) : nullptr;
        metaUser_ = user;
    }

    /// Interface thread: none is called any more, but one that runs goes on.
    void forget() {
        const base::MutexLock lock(mutex_);
        download_ = nullptr;
        meta_ = nullptr;
    }

    // The thread of the stream.

    void bytes(std::span<const std::byte> bytes) {
        std::shared_ptr<const DownloadRoutine> routine;
        {
            const base::MutexLock lock(mutex_);
            routine = download_;
        }
        if (routine != nullptr) {
            (*routine)(bytes, downloadUser_);
        }
    }

    void metadata(std::string_view text) {
        std::shared_ptr<const MetaRoutine> routine;
        std::uintptr_t user = 0;
        {
            const base::MutexLock lock(mutex_);
            routine = meta_;
            user = metaUser_;
        }
        if (routine != nullptr) {
            (*routine)(text, user);
        }
    }

private:
    base::Mutex mutex_;
    std::shared_ptr<const DownloadRoutine> download_ TOVIK_GUARDED_BY(mutex_);
    std::shared_ptr<const MetaRoutine> meta_ TOVIK_GUARDED_BY(mutex_);
    std::uintptr_t metaUser_ TOVIK_GUARDED_BY(mutex_) = 0;
    const std::uintptr_t downloadUser_;
};

} // namespace tovik::sound
