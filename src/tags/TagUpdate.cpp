// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagUpdate.h"

#include "base/RegularFile.h"
#include "tags/BigEndian.h"
#include "tags/Id3v2Reader.h"
#include "tags/MakeRoom.h"
#include "tags/SoundStart.h"

#include <algorithm>
#include <cstdint>

namespace tovik::tags {

namespace {

using base::RegularFile;

constexpr std::int64_t kRoomStep = 2048;
constexpr std::size_t kSizeAt = 6;

/// What a tag at the start of a file has for itself.
struct Room {
    std::int64_t bytes = 0; ///< up to the sound; 0 without a tag
    std::string size{};     ///< the four bytes that tell it
};

std::error_code findRoom(const RegularFile& file, Room& room) {
    std::string head;
    if (const std::error_code failure =
            file.readAt(0, static_cast<std::size_t>(kTagHeadBytes), head)) {
        return failure;
    }
    if (head.size() == static_cast<std::size_t>(kTagHeadBytes) && head.starts_with(kTagMark)) {
        // From the mark on: what only looks like a head may be sound.
        room.bytes = firstSound(file, static_cast<std::int64_t>(kTagMark.size())).value_or(0);
        room.size = head.substr(kSizeAt);
    }
    return {};
}

/// The old size stays where it holds the new tag and does not reach into the sound, by this
/// program's reading or by that of others.
std::int32_t sizeInPlace(const Room& room, std::int64_t length) {
    const std::int32_t told = FromBigEndian(room.size);
    const std::int32_t others = fromSevenBits(room.size);
    const bool apt = told <= room.bytes || (others >= 0 && others + kTagHeadBytes <= room.bytes);
    return told >= length && apt ? told : static_cast<std::int32_t>(room.bytes);
}

std::error_code writeInPlace(RegularFile& file, const std::string& tag) {
    std::string old;
    if (const std::error_code failure = file.readAt(0, tag.size(), old)) {
        return failure;
    }
    const std::error_code failure = file.writeAt(0, tag);
    if (failure) {
        // If that fails, too, there is nothing left to do, and the first failure is the one to
        // tell.
        static_cast<void>(file.writeAt(0, old));
    }
    return failure;
}

} // namespace

std::error_code updateTag(const std::string& path, std::string tag) {
    RegularFile file(path, RegularFile::Access::ReadWrite);
    Room room;
    if (file.failure()) {
        return file.failure();
    }
    const auto length = static_cast<std::int64_t>(tag.size());
    if (length > INT32_MAX - kRoomStep || file.size() > INT32_MAX - kRoomStep - length) {
        return std::make_error_code(std::errc::file_too_large);
    }
    if (const std::error_code failure = findRoom(file, room)) {
        return failure;
    }
    if (length < room.bytes) {
        PutBigEndian(tag, kSizeAt, sizeInPlace(room, length));
        return writeInPlace(file, tag);
    }
    const std::int64_t size = (length / kRoomStep + 1) * kRoomStep;
    PutBigEndian(tag, kSizeAt, static_cast<std::int32_t>(size));
    return MakeRoom(path, file, size - room.bytes, tag);
}

} // namespace tovik::tags
