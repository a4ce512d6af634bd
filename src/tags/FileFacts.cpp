// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileFacts.h"

#include "base/ModuleFile.h"
#include "base/RegularFile.h"
#include "tags/EditedBytes.h"
#include "tags/TagModule.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace tovik::tags {

namespace {

/// A drive that is away took the folder along: nobody knows of a file on it.
bool isInFolder(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_directory(std::filesystem::path(path).parent_path(), failure);
}

} // namespace

const TagModule* tagModule() {
    static const auto* const module =
        base::findInModule<TagModule>(kTagFile, kTagSymbol, kTagVersion);
    return module;
}

FileFacts factsOfBytes(TagBytes& bytes, const std::string& name) {
    const TagModule* const module = tagModule();
    return module == nullptr ? FileFacts{} : module->facts(bytes, name);
}

FileFacts factsOfFile(const std::string& path) {
    EditedBytes bytes(path, base::RegularFile::Access::Read);
    FileFacts facts;
    if (bytes.failure()) {
        facts.nothing = bytes.failure() == std::errc::no_such_file_or_directory && isInFolder(path);
    } else if (bytes.size() == 0) {
        facts.nothing = true;
    } else {
        facts = factsOfBytes(bytes, path);
    }
    return facts;
}

std::optional<TagPicture> pictureOfBytes(TagBytes& bytes, const std::string& name) {
    const TagModule* const module = tagModule();
    if (module == nullptr) {
        return std::nullopt;
    }
    for (std::string& picture : module->pictures(bytes, name)) {
        if (const auto form = pictureForm(picture)) {
            return TagPicture{.form = *form, .bytes = std::move(picture)};
        }
    }
    return std::nullopt;
}

std::optional<TagPicture> pictureOfAnyFile(const std::string& path) {
    EditedBytes bytes(path, base::RegularFile::Access::Read);
    return bytes.failure() ? std::nullopt : pictureOfBytes(bytes, path);
}

std::string listTitle(const FileFacts& facts) {
    return facts.artist.empty() || facts.title.empty() ? facts.title
                                                       : facts.artist + " - " + facts.title;
}

bool followsOnAlbum(const FileFacts& before, const FileFacts& after) {
    return !before.album.empty() && before.album == after.album && before.artist == after.artist &&
           before.disc == after.disc && before.track > 0 && before.track + 1 == after.track;
}

} // namespace tovik::tags
