// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/EditTags.h"

#include "base/AtomicFile.h"
#include "tags/EditedBytes.h"
#include "tags/Id3v1Edit.h"
#include "tags/Id3v2Edit.h"
#include "tags/SoundStart.h"
#include "tags/TagModule.h"

#include <algorithm>

namespace tovik::tags {

namespace {

using base::RegularFile;

/// Behind the mark of a tag, which could be taken for the beginning of a frame.
constexpr std::int64_t kBehindMark = 3;

bool isMpeg(const std::string& path) {
    const RegularFile file(path, RegularFile::Access::Read);
    return !file.failure() && isMpegAudio(file);
}

bool changeMpeg(EditedBytes& bytes, const std::string& path, const TagChanges& changes) {
    const RegularFile file(path, RegularFile::Access::Read);
    if (file.failure()) {
        return false;
    }
    const auto sound = hasVersion2(bytes) ? firstSound(file, kBehindMark) : std::nullopt;
    // The tag at the end first: the one at the start moves all offsets.
    changeVersion1(bytes, changes.version1);
    return changeVersion2(bytes, changes.version2, sound);
}

std::error_code replace(const std::string& path, EditedBytes& bytes) {
    base::AtomicFile file(path);
    if (const std::error_code failure = bytes.copyTo(file)) {
        return failure;
    }
    return file.commit(base::Flush::Yes);
}

} // namespace

bool TagChange::any() const {
    return std::ranges::any_of(texts, [](const auto& text) { return text.has_value(); });
}

EditTags readEditTags(const std::string& path) {
    EditedBytes bytes(path, RegularFile::Access::Read);
    const TagModule* const module = tagModule();
    if (bytes.failure() || module == nullptr) {
        return {};
    }
    if (!isMpeg(path)) {
        return module->readOther(bytes, path);
    }
    return {.kind = TagKind::mpeg,
            .version1 = readVersion1(bytes),
            .version2 = hasVersion2(bytes) ? module->readId3v2(bytes) : EditTag{}};
}

std::error_code saveEditTags(const std::string& path, const TagChanges& changes) {
    const TagChange& one = changes.version1;
    const TagChange& two = changes.version2;
    if (one.keep && two.keep && !one.any() && !two.any()) {
        return {};
    }
    // A file that may not be written is not replaced, either.
    EditedBytes bytes(path, RegularFile::Access::ReadWrite);
    if (bytes.failure()) {
        return bytes.failure();
    }
    const TagModule* const module = tagModule();
    const bool changed = isMpeg(path) ? changeMpeg(bytes, path, changes)
                                      : module != nullptr && module->changeOther(bytes, path, two);
    if (bytes.failure()) {
        return bytes.failure();
    }
    if (!changed) {
        return std::make_error_code(std::errc::not_supported);
    }
    return bytes.edited() ? replace(path, bytes) : std::error_code();
}

} // namespace tovik::tags
