// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/SharedPicture.h"

#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace tovik::visual {

namespace {

constexpr std::size_t kGuard = std::size_t{1} << 20U; ///< bytes at either end

} // namespace

bool SharedPicture::map(int descriptor, std::uint32_t width, std::uint32_t height) {
    drop();
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t bytes = std::size_t{width} * height * sizeof(std::uint32_t);
    const std::size_t whole = (bytes + page - 1) / page * page;
    size_ = whole + 2 * kGuard;
    void* const reserved =
        ::mmap(nullptr, size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    reserved_ = reserved == MAP_FAILED ? nullptr : reserved;
    void* const shown = reserved_ == nullptr
                            ? MAP_FAILED
                            : ::mmap(static_cast<std::byte*>(reserved_) + kGuard, whole,
                                     PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, descriptor, 0);
    ::close(descriptor);
    if (shown == MAP_FAILED) {
        drop();
        return false;
    }
    pixels_ = static_cast<std::uint32_t*>(shown);
    width_ = width;
    height_ = height;
    return true;
}

void SharedPicture::drop() noexcept {
    if (void* const reserved = std::exchange(reserved_, nullptr); reserved != nullptr) {
        ::munmap(reserved, size_);
    }
    pixels_ = nullptr;
}

} // namespace tovik::visual
