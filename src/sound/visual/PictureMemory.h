// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for a picture that another process writes and the player reads. Interface thread only.
#pragma once

#include "sound/api/VisualOperations.h"

#include <cstddef>
#include <cstdint>

namespace tovik::sound {

/// Its size is sealed: whatever the other process does, reading it never fails.
class PictureMemory {
public:
    PictureMemory() = default;

    ~PictureMemory() { drop(); }

    PictureMemory(const PictureMemory&) = delete;
    PictureMemory& operator=(const PictureMemory&) = delete;

    /// The longest side, in pixels.
    static constexpr int kMostSide = kMostVisualSide;

    /// New memory, all 0, in place of the old. False for a size out of bounds, and where there is
    /// no memory; then there is no picture.
    [[nodiscard]] bool make(int width, int height);

    /// To be handed to the other process; -1 without a picture.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

    /// Null without a picture.
    [[nodiscard]] const std::uint32_t* pixels() const noexcept { return pixels_; }

    [[nodiscard]] int width() const noexcept { return width_; }

    [[nodiscard]] int height() const noexcept { return height_; }

private:
    void drop() noexcept;

    int descriptor_ = -1;
    const std::uint32_t* pixels_ = nullptr;
    std::size_t bytes_ = 0;
    int width_ = 0;
    int height_ = 0;
};

} // namespace tovik::sound
