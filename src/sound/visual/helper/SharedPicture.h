// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that a plug-in draws into, which the player reads. The one thread of the process.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tovik::visual {

/// Before and behind it lies memory that nobody may touch: who writes outside of the picture ends.
class SharedPicture {
public:
    SharedPicture() = default;

    ~SharedPicture() { drop(); }

    SharedPicture(const SharedPicture&) = delete;
    SharedPicture& operator=(const SharedPicture&) = delete;

    /// Shows the memory behind a descriptor, which is closed, in place of what was there. False
    /// where that cannot be done.
    [[nodiscard]] bool map(int descriptor, std::uint32_t width, std::uint32_t height);

    [[nodiscard]] std::uint32_t* pixels() const noexcept { return pixels_; }

    [[nodiscard]] std::uint32_t width() const noexcept { return width_; }

    [[nodiscard]] std::uint32_t height() const noexcept { return height_; }

private:
    void drop() noexcept;

    void* reserved_ = nullptr;
    std::size_t size_ = 0; ///< of all that is reserved, in bytes
    std::uint32_t* pixels_ = nullptr;
    std::uint32_t width_ = 0;
    std::uint32_t height_ = 0;
};

} // namespace tovik::visual
