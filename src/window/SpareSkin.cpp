// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/SpareSkin.h"

#include "base/RegularFile.h"
#include "base/Text.h"
#include "skin/Bitmap.h"
#include "skin/Huffman.h"
#include "skin/PicturePrint.h"

#include <utility>

namespace tovik::window {

SpareSkin::SpareSkin(const base::Comfort& comfort, std::vector<std::string> packages, Missed missed)
    : comfort_(comfort), paths_(std::move(packages)), missed_(std::move(missed)) {}

std::optional<SkinBitmap> SpareSkin::insteadOf(const base::RuntimeError& error,
                                               std::string_view name) {
    if (!comfort_.startsWithoutPicture) {
        throw error; // NOLINT(misc-throw-*,cert-*): as it was raised
    }
    if (told_.emplace(name).second) {
        missed_(error);
    }
    readPackages();
    const std::string file = base::toLowerAscii(name) + ".bmp";
    for (const Package& package : packages_) {
        const auto found = package.pictures.find(file);
        if (found == package.pictures.end()) {
            continue;
        }
        try {
            const std::string bytes = skin::HuffmanDecodeString(found->second.payload);
            return SkinBitmap{skin::readBitmap(bytes), skin::picturePrint(name, bytes)};
        } catch (const base::RuntimeError&) {
            continue; // the next package may have it whole
        }
    }
    return std::nullopt;
}

void SpareSkin::readPackages() {
    for (const std::string& path : std::exchange(paths_, {})) {
        Package package;
        if (path.empty() || base::readWholeFile(path, package.bytes)) {
            continue;
        }
        // In its place first: the pictures point into its bytes.
        Package& kept = packages_.emplace_back(std::move(package));
        try {
            kept.pictures = skin::picturesOf(kept.bytes);
        } catch (const base::RuntimeError&) {
            packages_.pop_back();
        }
    }
}

} // namespace tovik::window
