// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/PackedPictures.h"

#include "base/Text.h"
#include "skin/SkinPackage.h"

namespace tovik::skin {

PackedPictures picturesOf(std::string_view bytes) {
    PackedPictures pictures;
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

} // namespace tovik::skin
