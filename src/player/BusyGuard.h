// SPDX-License-Identifier: GPL-3.0-or-later
// Marks that something is going on. Interface thread.
#pragma once

namespace tovik::player {

/// Sets the flag as long as it lives, however it ends.
class BusyGuard {
public:
    /// Kept by reference.
    explicit BusyGuard(bool& busy) : busy_(busy) { busy_ = true; }

    ~BusyGuard() { busy_ = false; }

    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    bool& busy_;
};

} // namespace tovik::player
