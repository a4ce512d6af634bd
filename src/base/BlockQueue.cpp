// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/BlockQueue.h"

#include <utility>

namespace tovik::base {

bool BlockQueue::hasRoom() const {
    const MutexLock lock(mutex_);
    return bytes_ < mostBytes_;
}

bool BlockQueue::put(Block block) {
    const MutexLock lock(mutex_);
    if (abandoned_ || closed_) {
        return false;
    }
    if (!block.empty()) {
        bytes_ += block.size();
        blocks_.push_back(std::move(block));
        changed_.notifyAll();
    }
    return true;
}

void BlockQueue::close() {
    const MutexLock lock(mutex_);
    closed_ = true;
    changed_.notifyAll();
}

std::optional<Block> BlockQueue::take() {
    const MutexLock lock(mutex_);
    while (blocks_.empty() && !closed_ && !abandoned_) {
        changed_.wait(mutex_);
    }
    if (blocks_.empty()) {
        return std::nullopt;
    }
    Block block = std::move(blocks_.front());
    blocks_.pop_front();
    bytes_ -= block.size();
    changed_.notifyAll();
    return block;
}

bool BlockQueue::closed() const {
    const MutexLock lock(mutex_);
    return closed_;
}

void BlockQueue::abandon() {
    const MutexLock lock(mutex_);
    abandoned_ = true;
    blocks_.clear();
    bytes_ = 0;
    changed_.notifyAll();
}

} // namespace tovik::base
