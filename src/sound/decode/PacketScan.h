// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the exact length of a file whose header only estimates it, in slices, so that whoever runs
// it can give up or go on elsewhere. Used by one thread at a time.
#pragma once

#include <chrono>
#include <cstdint>

namespace tovik::sound {

class PacketScan {
public:
    virtual ~PacketScan() = default;

    /// Reads on for about `slice`; true once the length is known.
    [[nodiscard]] virtual bool run(std::chrono::milliseconds slice) = 0;

    /// The exact length in frames, once `run` returned true.
    [[nodiscard]] virtual std::int64_t lengthFrames() const noexcept = 0;
};

} // namespace tovik::sound
