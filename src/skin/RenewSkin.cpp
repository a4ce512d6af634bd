// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/RenewSkin.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "skin/Huffman.h"
#include "skin/SkinPackage.h"
#include "skin/UnpackSkin.h"

#include <filesystem>
#include <map>
#include <string>
#include <system_error>

namespace tovik::skin {

namespace {

/// What a picture's stream is, and how its name is written.
struct Picture {
    std::string_view fileName;
    std::string_view payload;
};

using Pictures = std::map<std::string, Picture>; ///< by the name in lower case

Pictures picturesOf(std::string_view bytes) {
    Pictures pictures;
    if (bytes.empty()) {
        return pictures;
    }
    SkinPackageReader package(bytes);
    for (int left = package.header().signedAsSkin() ? package.header().fileCount : 0; left > 0;
         --left) {
        const SkinPackageEntry entry = package.next();
        if (staysInFolder(entry.fileName)) {
            pictures[base::toLowerAscii(entry.fileName)] = {entry.fileName, entry.payload};
        }
    }
    return pictures;
}

/// Whether the file stands there as the older package has it. The streams of one picture are the
/// same bytes, so what both packages share needs no look at the disk.
bool isOlderForm(const std::string& path, const Picture& now, const Picture& before) {
    std::string there;
    return before.payload != now.payload && !base::readWholeFile(path, there) &&
           there == HuffmanDecodeString(before.payload);
}

} // namespace

void renewSkin(const host::Paths& paths, std::string_view newer, std::string_view older) {
    const std::string folder = paths.of(host::DataItem::CurrentSkin);
    std::error_code first;
    if (!std::filesystem::is_directory(folder, first) || !countsAsUnpacked(folder)) {
        return;
    }
    const host::Paths inFolder(folder);
    const Pictures before = picturesOf(older);
    for (const auto& [name, picture] : picturesOf(newer)) {
        const std::string path = inFolder.inside(picture.fileName);
        std::error_code unseen;
        const auto old = before.find(name);
        if (!std::filesystem::exists(std::filesystem::symlink_status(path, unseen)) ||
            (old != before.end() && isOlderForm(path, picture, old->second))) {
            const std::error_code failure =
                base::replaceFile(path, HuffmanDecodeString(picture.payload), base::Flush::No);
            first = first ? first : failure;
        }
    }
    base::raiseFailure(first);
}

} // namespace tovik::skin
