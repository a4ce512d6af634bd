// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/AudioExtensions.h"

#include "base/Text.h"
#include "playlist/FileNames.h"

#include <algorithm>
#include <span>

namespace tovik::playlist {

bool isDropped(std::string_view path) {
    const std::string extension = base::toLowerAscii(get_extension(path));
    return std::ranges::find(AudioExtensions, extension) != AudioExtensions.end();
}

std::int32_t scannedRows(std::string_view extension) {
    const std::string lower = base::toLowerAscii(extension);
    std::size_t rows = 0;
    for (const std::string_view known : std::span(AudioExtensions).first<kScannedExtensions>()) {
        // It is found from each place up to that where it occurs last.
        const std::size_t last = lower.rfind(known);
        rows += last == std::string::npos ? 0 : last + 1;
    }
    return static_cast<std::int32_t>(rows);
}

} // namespace tovik::playlist
