// SPDX-License-Identifier: GPL-3.0-or-later
// The instance lock as a lock on a file in the data folder. Interface thread.
#pragma once

#include "host/InstanceLock.h"

#include <string>

namespace tovik::host {

/// Holds an advisory lock on a file. The kernel takes it back when the process ends, however it
/// ends; the file itself stays.
class FileLock final : public InstanceLock {
public:
    explicit FileLock(std::string path);
    ~FileLock() override;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    [[nodiscard]] bool hold() override;
    void release() override;

private:
    std::string path_;
    int descriptor_ = -1;
};

} // namespace tovik::host
