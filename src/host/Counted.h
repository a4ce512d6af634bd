// SPDX-License-Identifier: GPL-3.0-or-later
// How deep calls of one kind stand in each other. Any thread.
#pragma once

namespace tovik::host {

/// Counts as long as it lives.
class Counted {
public:
    explicit Counted(int& count) : count_(count) { ++count_; }

    ~Counted() { --count_; }

    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& count_;
};

} // namespace tovik::host
