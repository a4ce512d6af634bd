// SPDX-License-Identifier: GPL-3.0-or-later
// Lets the FFmpeg demuxers read a ByteStore, so that no protocol layer sees a name of ours. One
// thread at a time.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/ffmpeg/Handles.h"

namespace tovik::sound::ffmpeg {

class ByteReader {
public:
    explicit ByteReader(std::shared_ptr<const ByteStore> store);
    ByteReader(const ByteReader&) = delete;
    ByteReader& operator=(const ByteReader&) = delete;
    ~ByteReader();

    /// Null when memory was short. Owned by this object.
    [[nodiscard]] AVIOContext* context() noexcept { return context_; }

private:
    static int read(void* self, std::uint8_t* into, int size) noexcept;
    static std::int64_t seek(void* self, std::int64_t offset, int whence) noexcept;

    std::shared_ptr<const ByteStore> store_;
    std::int64_t position_ = 0;
    AVIOContext* context_ = nullptr;
};

} // namespace tovik::sound::ffmpeg
