// SPDX-License-Identifier: GPL-3.0-or-later
// One open stream of libmpg123, reading a ByteStore. One thread.
#pragma once

#include "sound/decode/StoreCursor.h"

#include <cstdint>
#include <memory>
#include <mpg123.h>

namespace tovik::sound::mpeg {

class MpegHandle {
public:
    /// Null when no frame is found in `store`. The form of the samples is that of the first frame,
    /// whatever follows.
    [[nodiscard]] static std::unique_ptr<MpegHandle> open(std::shared_ptr<const ByteStore> store);

    MpegHandle(const MpegHandle&) = delete;
    MpegHandle& operator=(const MpegHandle&) = delete;
    ~MpegHandle();

    [[nodiscard]] mpg123_handle* get() noexcept { return handle_; }

    [[nodiscard]] int sampleRate() const noexcept { return static_cast<int>(rate_); }

    [[nodiscard]] int channels() const noexcept { return channels_; }

private:
    explicit MpegHandle(std::shared_ptr<const ByteStore> store) : cursor_(std::move(store)) {}

    [[nodiscard]] bool start();

    StoreCursor cursor_;
    mpg123_handle* handle_ = nullptr;
    long rate_ = 0;
    int channels_ = 0;
};

} // namespace tovik::sound::mpeg
