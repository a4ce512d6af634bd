// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/cMP3ID3v1.h"

#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "tags/GenreNames.h"

namespace tovik::tags {

namespace {

using base::RegularFile;

constexpr std::string_view kRemovedMark("\x01\0\0\0", 4);

/// Where the 128 bytes at the end begin.
std::int64_t lastBytesAt(const RegularFile& file) {
    return file.size() - static_cast<std::int64_t>(kId3v1Bytes);
}

/// The tag's bytes; empty when the file holds none.
std::error_code readTagBytes(const RegularFile& file, std::string& bytes) {
    bytes.clear();
    if (lastBytesAt(file) <= 0) {
        return {};
    }
    const std::error_code failure = file.readAt(lastBytesAt(file), kId3v1Bytes, bytes);
    if (bytes.size() != kId3v1Bytes || !bytes.starts_with(kId3v1Mark)) {
        bytes.clear();
    }
    return failure;
}

/// Takes the next bytes off the front.
std::string take(std::string_view& bytes, std::size_t count) {
    std::string taken(bytes.substr(0, count));
    bytes.remove_prefix(count);
    return taken;
}

} // namespace

void cMP3ID3v1::MP3File(std::string path) {
    path_ = std::move(path);
    ReadTag();
}

void cMP3ID3v1::Update() {
    WriteTag();
}

void cMP3ID3v1::ReadTag() {
    hasTag_ = false;
    fields_ = {};
    const RegularFile file(path_, RegularFile::Access::Read);
    std::string tag;
    if (file.failure() || readTagBytes(file, tag)) {
        warning_.showOnce();
        return;
    }
    if (tag.empty()) {
        return;
    }
    hasTag_ = true;
    std::string_view rest = tag;
    rest.remove_prefix(kId3v1Mark.size());
    fields_.title = take(rest, kTextWidth);
    fields_.artist = take(rest, kTextWidth);
    fields_.album = take(rest, kTextWidth);
    fields_.year = take(rest, kYearWidth);
    fields_.comment = take(rest, kCommentWidth);
    rest.remove_prefix(1);
    fields_.track = static_cast<std::uint8_t>(rest[0]);
    fields_.genre = static_cast<std::uint8_t>(rest[1]);
}

void cMP3ID3v1::WriteTag() {
    RegularFile file(path_, RegularFile::Access::ReadWrite);
    if (file.failure()) {
        warning_.showOnce();
        return;
    }
    if (file.size() == 0) {
        warning_.showOnce();
        throw base::RuntimeError(base::ErrorNumber::NotAnMp3File,
                                 path_ + " is not a valid MP3 file.", "tovik.cMP3ID3v1");
    }
    if (lastBytesAt(file) <= 0) {
        return;
    }
    std::string old;
    base::raiseFailure(readTagBytes(file, old));
    const std::error_code failure =
        file.writeAt(old.empty() ? file.size() : lastBytesAt(file), id3v1Bytes(fields_));
    if (failure) {
        // Half a tag behind the sound would be noise to players: the length is put back. If that
        // fails too there is nothing left to do, and the first failure is the one to tell.
        static_cast<void>(file.resize(file.size()));
    }
    base::raiseFailure(failure);
}

bool cMP3ID3v1::RemoveTag() const {
    RegularFile file(path_, RegularFile::Access::ReadWrite);
    return !file.failure() && lastBytesAt(file) >= 0 &&
           !file.writeAt(lastBytesAt(file), kRemovedMark);
}

std::string_view cMP3ID3v1::GenreName(int genre) noexcept {
    return genreName(genre);
}

} // namespace tovik::tags
