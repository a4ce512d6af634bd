// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes on their way from one thread to another, block by block, with a bound. Any thread.
#pragma once

#include "base/Mutex.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <vector>

namespace tovik::base {

using Block = std::vector<std::byte>;

/// One thread gives and never waits, one takes and may. Shared by both, so that neither has to
/// outlive the other.
class BlockQueue {
public:
    /// It counts as full once it holds `mostBytes`: a block that begins below that still fits.
    explicit BlockQueue(std::size_t mostBytes) : mostBytes_(mostBytes) {}

    // Who gives ---------------------------------------------------------------------------------

    [[nodiscard]] bool hasRoom() const;

    /// Adds a block whether there is room or not, and waits for nothing. False once nobody takes
    /// any more.
    bool put(Block block);

    /// Nothing more comes; what is in it can still be taken.
    void close();

    [[nodiscard]] bool closed() const;

    // Who takes ---------------------------------------------------------------------------------

    /// The next block; waits for it. Nothing at the end.
    [[nodiscard]] std::optional<Block> take();

    /// Nothing more is taken: what is in it goes, and who gives learns of it.
    void abandon();

private:
    const std::size_t mostBytes_;
    mutable Mutex mutex_;
    Condition changed_;
    std::deque<Block> blocks_ TOVIK_GUARDED_BY(mutex_);
    std::size_t bytes_ TOVIK_GUARDED_BY(mutex_) = 0;
    bool closed_ TOVIK_GUARDED_BY(mutex_) = false;
    bool abandoned_ TOVIK_GUARDED_BY(mutex_) = false;
};

} // namespace tovik::base
