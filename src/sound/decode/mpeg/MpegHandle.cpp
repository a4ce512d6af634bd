// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/mpeg/MpegHandle.h"

#include <array>
#include <utility>

namespace tovik::sound::mpeg {
namespace {

constexpr long kFlags = MPG123_QUIET | MPG123_GAPLESS | MPG123_FORCE_FLOAT | MPG123_SKIP_ID3V2;

// Frames decoded in front of the place sought: a frame may need the bits of those before it, 511
// bytes at most, and the smallest frames have 24.
constexpr long kFramesBefore = 24;

// How far the library looks for the next frame: anywhere.
constexpr long kNoLimit = -1;

// Places of frames that are kept to seek by; below 0 the list grows.
constexpr long kGrowingIndex = -1000;

constexpr std::array<std::pair<mpg123_parms, long>, 4> kParameters = {
    {{MPG123_ADD_FLAGS, kFlags},
     {MPG123_RESYNC_LIMIT, kNoLimit},
     {MPG123_PREFRAMES, kFramesBefore},
     {MPG123_INDEX_SIZE, kGrowingIndex}}};

mpg123_ssize_t readStore(void* cursor, void* into, std::size_t size) {
    return static_cast<StoreCursor*>(cursor)->read({static_cast<std::byte*>(into), size});
}

off_t seekStore(void* cursor, off_t offset, int whence) {
    return static_cast<StoreCursor*>(cursor)->seek(offset, whence);
}

} // namespace

std::unique_ptr<MpegHandle> MpegHandle::open(std::shared_ptr<const ByteStore> store) {
    std::unique_ptr<MpegHandle> handle(new MpegHandle(std::move(store)));
    return handle->start() ? std::move(handle) : nullptr;
}

MpegHandle::~MpegHandle() {
    mpg123_delete(handle_);
}

bool MpegHandle::start() {
    handle_ = mpg123_new(nullptr, nullptr);
    if (handle_ == nullptr) {
        return false;
    }
    for (const auto& [parameter, value] : kParameters) {
        if (mpg123_param(handle_, parameter, value, 0.0) != MPG123_OK) {
            return false;
        }
    }
    int encoding = 0;
    return mpg123_replace_reader_handle(handle_, &readStore, &seekStore, nullptr) == MPG123_OK &&
           mpg123_open_handle(handle_, &cursor_) == MPG123_OK &&
           mpg123_getformat(handle_, &rate_, &channels_, &encoding) == MPG123_OK &&
           mpg123_format_none(handle_) == MPG123_OK &&
           mpg123_format(handle_, rate_, channels_, MPG123_ENC_FLOAT_32) == MPG123_OK;
}

} // namespace tovik::sound::mpeg
