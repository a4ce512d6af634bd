// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/vorbis/VorbisFile.h"

#include <algorithm>

namespace tovik::sound::vorbis {
namespace {

StoreCursor& cursorOf(void* source) {
    return *static_cast<StoreCursor*>(source);
}

std::size_t readStore(void* into, std::size_t size, std::size_t count, void* source) {
    const std::int64_t got = cursorOf(source).read({static_cast<std::byte*>(into), size * count});
    return size == 0 ? 0 : static_cast<std::size_t>(std::max<std::int64_t>(got, 0)) / size;
}

int seekStore(void* source, ogg_int64_t offset, int whence) {
    return cursorOf(source).seek(offset, whence) < 0 ? -1 : 0;
}

long tellStore(void* source) {
    return cursorOf(source).position();
}

constexpr ov_callbacks kCallbacks = {&readStore, &seekStore, nullptr, &tellStore};

} // namespace

std::unique_ptr<VorbisFile> VorbisFile::open(std::shared_ptr<const ByteStore> store) {
    std::unique_ptr<VorbisFile> file(new VorbisFile(std::move(store)));
    // What could not be opened was cleared by the library, and may be cleared again.
    const int result = ov_open_callbacks(&file->cursor_, &file->file_, nullptr, 0, kCallbacks);
    return result == 0 ? std::move(file) : nullptr;
}

VorbisFile::~VorbisFile() {
    ov_clear(&file_);
}

} // namespace tovik::sound::vorbis
