// SPDX-License-Identifier: GPL-3.0-or-later
// A track that is read with verification, ahead of who takes its bytes. The reading is done on the
// drive's thread, some sectors at a time, so that other wishes come in between; what a scratch
// holds up there holds up nobody here. Interface thread.
#pragma once

#include "sound/cd/DiscPlace.h"
#include "sound/cd/TrackHealth.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace tovik::sound {

class RipStream {
public:
    /// Begins to read.
    RipStream(std::shared_ptr<DriveWork> drive, const DiscPlace& place);

    /// Nothing is read any more.
    ~RipStream();
    RipStream(const RipStream&) = delete;
    RipStream& operator=(const RipStream&) = delete;

    /// Fills `bytes` as far as there is something within `patience`; the bytes given. The end, and
    /// a disc that is gone, give none any more.
    [[nodiscard]] std::size_t take(std::span<std::byte> bytes, std::chrono::milliseconds patience);

    /// Everything was taken, or nothing comes any more.
    [[nodiscard]] bool ended() const;

    /// Bytes taken so far.
    [[nodiscard]] std::int64_t position() const noexcept { return position_; }

    [[nodiscard]] std::int64_t length() const noexcept { return length_; }

    [[nodiscard]] DiscReport report() const;

private:
    class Work;

    const std::shared_ptr<Work> work_;
    const std::int64_t length_;
    std::int64_t position_ = 0;
};

} // namespace tovik::sound
