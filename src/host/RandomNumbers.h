// SPDX-License-Identifier: GPL-3.0-or-later
// Chance, so that tests and renders can fix it. Interface thread.
#pragma once

namespace tovik::host {

class RandomNumbers {
public:
    virtual ~RandomNumbers() = default;

    /// The next number, uniform in [0, 1).
    [[nodiscard]] virtual double next() = 0;
};

} // namespace tovik::host
