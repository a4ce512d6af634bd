// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/ByteReader.h"

#include <cstdio>

namespace tovik::sound::ffmpeg {
namespace {

constexpr int kBufferBytes = 32 * 1024;

} // namespace

ByteReader::ByteReader(std::shared_ptr<const ByteStore> store) : store_(std::move(store)) {
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferBytes));
    // Without a size it is a stream, in which there is no way but on.
    const bool seekable = store_->size() >= 0;
    context_ = avio_alloc_context(buffer, kBufferBytes, 0, this, &read, nullptr,
                                  seekable ? &seek : nullptr);
    if (context_ == nullptr) {
        av_free(buffer);
    }
}

ByteReader::~ByteReader() {
    if (context_ != nullptr) {
        av_freep(&context_->buffer); // the library may have replaced the first buffer
        avio_context_free(&context_);
    }
}

int ByteReader::read(void* self, std::uint8_t* into, int size) noexcept {
    auto& reader = *static_cast<ByteReader*>(self);
    const std::span room(into, static_cast<std::size_t>(size));
    const std::int64_t got = reader.store_->readAt(reader.position_, std::as_writable_bytes(room));
    if (got < 0) {
        return AVERROR(EIO);
    }
    reader.position_ += got;
    return got == 0 ? AVERROR_EOF : static_cast<int>(got);
}

std::int64_t ByteReader::seek(void* self, std::int64_t offset, int whence) noexcept {
    auto& reader = *static_cast<ByteReader*>(self);
    const std::int64_t size = reader.store_->size();
    std::int64_t base = 0;
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return size < 0 ? AVERROR(EIO) : size;
    case SEEK_SET:
        break;
    case SEEK_CUR:
        base = reader.position_;
        break;
    case SEEK_END:
        base = size;
        break;
    default:
        return AVERROR(EINVAL);
    }
    const std::int64_t target = av_sat_add64(base, offset);
    if (target < 0) {
        return AVERROR(EINVAL);
    }
    reader.position_ = target;
    return target;
}

} // namespace tovik::sound::ffmpeg
