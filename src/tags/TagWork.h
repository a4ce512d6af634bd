// SPDX-License-Identifier: GPL-3.0-or-later
// How work on a file that may take long is run. Interface thread.
#pragma once

#include <functional>

namespace tovik::tags {

class TagWork {
public:
    virtual ~TagWork() = default;

    /// Runs the work, which throws nothing, on a thread of its choice, and returns when it is done.
    /// Other handlers may run in the meantime. Interface thread.
    virtual void run(const std::function<void()>& work) = 0;

    /// Runs everything at once, where it is called.
    [[nodiscard]] static TagWork& direct();
};

} // namespace tovik::tags
