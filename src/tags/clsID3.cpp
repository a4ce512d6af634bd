// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/clsID3.h"

#include "base/FileErrors.h"
#include "base/Numbers.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "tags/FileAttributes.h"
#include "tags/FileWindow.h"
#include "tags/InfoGenres.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>

namespace tovik::tags {

namespace {

using base::ErrorNumber;
using base::RegularFile;
using base::RuntimeError;

constexpr std::string_view kMark = "TAG";
constexpr std::int64_t kTagBytes = 128;
constexpr std::string_view kNoGenre = "255";
constexpr std::int64_t kScannedBytes = 50000;
constexpr std::int64_t kNoFrame = -2;

/// The number of a value that is one.
std::optional<std::int32_t> numberOf(std::string_view value) {
    try {
        return base::toInt32(base::textToNumber(value));
    } catch (const RuntimeError& error) {
        if (error.number() == static_cast<int>(ErrorNumber::TypeMismatch)) {
            return std::nullopt;
        }
        throw;
    }
}

/// The 128 bytes at the end. Raises 63 where there are not so many.
std::string lastBytes(const RegularFile& file) {
    if (file.size() < kTagBytes) {
        throw RuntimeError(ErrorNumber::BadRecordNumber);
    }
    std::string bytes;
    base::raiseFailure(
        file.readAt(file.size() - kTagBytes, static_cast<std::size_t>(kTagBytes), bytes));
    return bytes;
}

/// Four bytes of a file, those beyond its end as 0.
MpegHeader::Bytes fourBytes(std::string_view bytes) {
    const auto byte = [bytes](std::size_t index) {
        return static_cast<std::uint8_t>(index < bytes.size() ? bytes[index] : '\0');
    };
    return {byte(0), byte(1), byte(2), byte(3)};
}

} // namespace

bool clsID3::FileExists(const std::string& path) {
    std::error_code failure; // what cannot be looked at is not there
    return std::filesystem::exists(path, failure);
}

void clsID3::FullName(std::string path) {
    fullName_ = std::move(path);
    fileName_ = base::lastPart(fullName_);
    path_ = fullName_.substr(0, fullName_.size() - fileName_.size());
}

std::string clsID3::FileAttributes() const {
    return fileAttributes(fullName_);
}

void clsID3::FileAttributes(std::string_view letters) const {
    setFileAttributes(fullName_, letters);
}

std::string clsID3::GetGenre(std::string_view value) {
    const auto& names = infoGenres();
    if (const std::optional<std::int32_t> number = numberOf(value)) {
        if (*number < 0) {
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        }
        const auto index = static_cast<std::size_t>(*number);
        return std::string(index < names.size() ? names[index] : "Unknown");
    }
    const auto* const name = std::find(names.begin(), names.end(), value);
    return name == names.end() ? std::string(kNoGenre) : std::to_string(name - names.begin());
}

std::optional<std::int32_t> clsID3::ReadMP3Info() {
    if (!FileExists(fullName_)) {
        return -1;
    }
    ReadTag();
    ReadHeader();
    return std::nullopt;
}

void clsID3::ReadTag() {
    title_ = artist_ = album_ = comment_ = "";
    year_ = "";
    genre_ = "";
    tagPresent_ = false;
    const RegularFile file(fullName_, RegularFile::Access::Read);
    base::raiseFailure(file.failure());
    const std::string tag = lastBytes(file);
    if (!tag.starts_with(kMark)) {
        return;
    }
    tagPresent_ = true;
    const std::string_view bytes = tag;
    title_ = bytes.substr(3, 30);
    artist_ = bytes.substr(33, 30);
    album_ = bytes.substr(63, 30);
    year_ = bytes.substr(93, 4);
    comment_ = bytes.substr(97, 30);
    genre_ = GetGenre(std::to_string(static_cast<unsigned char>(bytes[127])));
}

std::string clsID3::tagBytes() const {
    const std::optional<std::int32_t> genre = numberOf(GetGenre(genre_.trimmed()));
    if (!genre) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return std::string(kMark) + title_.bytes() + artist_.bytes() + album_.bytes() + year_.bytes() +
           comment_.bytes() + static_cast<char>(*genre);
}

std::int32_t clsID3::WriteTag() {
    if (!FileExists(fullName_)) {
        return -1;
    }
    const NormalAttributes writable(fullName_);
    const std::string tag = tagBytes();
    RegularFile file(fullName_, RegularFile::Access::ReadWrite);
    base::raiseFailure(file.failure());
    // The file may be another one by now: what is no tag is never written over.
    const bool inPlace = tagPresent_ && lastBytes(file).starts_with(kMark);
    const std::error_code failure =
        file.writeAt(inPlace ? file.size() - kTagBytes : file.size(), tag);
    if (failure) {
        static_cast<void>(file.resize(file.size())); // the first failure is the one to tell
    }
    base::raiseFailure(failure);
    tagPresent_ = false;
    return 0;
}

std::int32_t clsID3::RemoveTag() const {
    if (!FileExists(fullName_)) {
        return -1;
    }
    NormalAttributes writable(fullName_);
    RegularFile file(fullName_, RegularFile::Access::ReadWrite);
    if (file.failure()) {
        return -1;
    }
    if (!lastBytes(file).starts_with(kMark)) {
        writable.keep();
        return 0;
    }
    base::raiseFailure(file.resize(file.size() - kTagBytes));
    return 1;
}

std::string clsID3::ReadHeader() {
    if (FindFrame() == kNoFrame) {
        return "-2";
    }
    const RegularFile file(fullName_, RegularFile::Access::Read);
    base::raiseFailure(file.failure());
    totalFrames_ =
        header_.frameLength <= 0 ? 0 : static_cast<std::int32_t>(file.size() / header_.frameLength);
    return "";
}

/// The place of the first frame that another one follows, counted from 1, or `kNoFrame`.
std::int64_t clsID3::FindFrame() {
    const RegularFile file(fullName_, RegularFile::Access::Read);
    base::raiseFailure(file.failure());
    std::string block;
    base::raiseFailure(file.readAt(0, static_cast<std::size_t>(kScannedBytes), block));
    // A short file's last byte is not looked at.
    const std::int64_t limit = std::min(kScannedBytes, file.size() - 1);
    FileWindow window(file);
    bool afterSync = false;
    for (std::int64_t position = 1; position <= limit; ++position) {
        const auto byte =
            static_cast<unsigned char>(block.at(static_cast<std::size_t>(position) - 1));
        const bool opens = (byte == 0xFB || byte == 0xFA) && afterSync;
        if (opens) {
            const std::int64_t candidate = position - 1;
            const std::string_view head =
                std::string_view(block).substr(static_cast<std::size_t>(candidate) - 1);
            if (!header_.ParseHeader(fourBytes(head))) {
                continue; // what went before still counts as a sync byte
            }
            const auto next = fourBytes(window.at(candidate + header_.frameLength - 1, 4));
            if (next[0] == 0xFF && (next[1] & 0xE0) == 0xE0) {
                return candidate;
            }
        }
        afterSync = byte == 0xFF;
    }
    return kNoFrame;
}

float clsID3::PlayTime() {
    if (!header_.valid) {
        return -1;
    }
    const RegularFile file(fullName_, RegularFile::Access::Read);
    base::raiseFailure(file.failure());
    const double rate = base::textToNumber(header_.bitrate.bytes());
    playTime_ = static_cast<float>(static_cast<double>(file.size()) * 8 / rate / 1000);
    playTime_ = static_cast<float>(std::floor((static_cast<double>(playTime_) + 0.05) * 100) / 100);
    return playTime_;
}

} // namespace tovik::tags
