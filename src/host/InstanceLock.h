// SPDX-License-Identifier: GPL-3.0-or-later
// Who was first among the instances of the program that share a data folder. Interface thread.
#pragma once

namespace tovik::host {

class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    /// Takes the lock if it is free. True when this instance holds it (also from before); false
    /// when another running instance does. A crashed instance holds nothing. Where no lock can be
    /// kept (a read-only data folder) every instance counts as the first.
    [[nodiscard]] virtual bool hold() = 0;

    /// Gives the lock back; nothing happens if it was not held.
    virtual void release() = 0;
};

} // namespace tovik::host
