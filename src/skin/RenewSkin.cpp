// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/RenewSkin.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "skin/Huffman.h"
#include "skin/PackedPictures.h"
#include "skin/UnpackSkin.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace tovik::skin {

namespace {

/// Whether the file stands there as the older package has it. The streams of one picture are the
/// same bytes, so what both packages share needs no look at the disk.
bool isOlderForm(const std::string& path, const PackedPicture& now, const PackedPicture& before) {
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
    const PackedPictures before = picturesOf(older);
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
