// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/PictureMemory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace tovik::sound {

bool PictureMemory::make(int width, int height) {
    drop();
    if (width < 1 || height < 1 || width > kMostSide || height > kMostSide) {
        return false;
    }
    const std::size_t bytes =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * sizeof(std::uint32_t);
    descriptor_ = ::memfd_create("tovik picture", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (descriptor_ < 0 || ::ftruncate(descriptor_, static_cast<off_t>(bytes)) != 0 ||
        ::fcntl(descriptor_, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0) {
        drop();
        return false;
    }
    void* const memory = ::mmap(nullptr, bytes, PROT_READ, MAP_SHARED, descriptor_, 0);
    if (memory == MAP_FAILED) {
        drop();
        return false;
    }
    pixels_ = static_cast<const std::uint32_t*>(memory);
    bytes_ = bytes;
    width_ = width;
    height_ = height;
    return true;
}

void PictureMemory::drop() noexcept {
    if (pixels_ != nullptr) {
        ::munmap(const_cast<std::uint32_t*>(std::exchange(pixels_, nullptr)), bytes_);
    }
    if (descriptor_ >= 0) {
        ::close(std::exchange(descriptor_, -1));
    }
    width_ = 0;
    height_ = 0;
}

} // namespace tovik::sound
