// SPDX-License-Identifier: GPL-3.0-or-later
// A place in a ByteStore that moves as it reads, for decoders that want to read and seek like in a
// file. One thread.
#pragma once

#include "sound/decode/ByteStore.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>

namespace tovik::sound {

class StoreCursor {
public:
    explicit StoreCursor(std::shared_ptr<const ByteStore> store) noexcept
        : store_(std::move(store)) {}

    /// The bytes read, fewer than asked at the end only; 0 at the end, -1 when reading failed.
    [[nodiscard]] std::int64_t read(std::span<std::byte> into) noexcept {
        std::int64_t done = 0;
        while (done < static_cast<std::int64_t>(into.size())) {
            const std::int64_t got =
                store_->readAt(position_, into.subspan(static_cast<std::size_t>(done)));
            if (got < 0 && done == 0) {
                return -1;
            }
            if (got <= 0) {
                break;
            }
            done += got;
            position_ += got;
        }
        return done;
    }

    /// Goes to `offset` from the place that `whence` names (SEEK_SET, SEEK_CUR, SEEK_END); where it
    /// stands then, -1 for a place before the beginning.
    [[nodiscard]] std::int64_t seek(std::int64_t offset, int whence) noexcept {
        const std::int64_t base = whence == SEEK_SET   ? 0
                                  : whence == SEEK_CUR ? position_
                                                       : store_->size();
        std::int64_t target = 0;
        if (base < 0 || __builtin_add_overflow(base, offset, &target) || target < 0) {
            return -1;
        }
        position_ = target;
        return target;
    }

    [[nodiscard]] std::int64_t position() const noexcept { return position_; }

    [[nodiscard]] const ByteStore& store() const noexcept { return *store_; }

private:
    std::shared_ptr<const ByteStore> store_;
    std::int64_t position_ = 0;
};

} // namespace tovik::sound
