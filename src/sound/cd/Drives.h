// SPDX-License-Identifier: GPL-3.0-or-later
// The drives of an engine, counted from 0: those of the machine, then the images of discs. They are
// looked for in a thread, since the system may take its time. Interface thread.
#pragma once

#include "sound/cd/DriveWork.h"

#include <cstdint>
#include <memory>

namespace tovik::sound {

class Drives {
public:
    explicit Drives(DriveOptions options);

    /// The threads end; one whose drive does not answer is left alone with what it owns.
    ~Drives();
    Drives(const Drives&) = delete;
    Drives& operator=(const Drives&) = delete;

    /// Begins to look which drives there are, and what is in them.
    void look();

    /// A look that was begun has not come to its end.
    [[nodiscard]] bool looking() const;

    /// Whether a look was ever begun.
    [[nodiscard]] bool everLooked() const noexcept { return everLooked_; }

    /// Null past the last one, and before the first look.
    [[nodiscard]] std::shared_ptr<DriveWork> find(std::uint32_t drive) const;

private:
    class Shared;

    const std::shared_ptr<Shared> shared_;
    bool everLooked_ = false;
};

} // namespace tovik::sound
