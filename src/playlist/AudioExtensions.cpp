// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/AudioExtensions.h"

#include "base/Text.h"
#include "playlist/FileNames.h"

#include <algorithm>
#include <span>

namespace tovik::playlist {

namespace {

constexpr std::span kScanned = std::span(AudioExtensions).first<kScannedExtensions>();

bool endsWithOne(std::string_view path, std::span<const std::string_view> extensions) {
    const std::string extension = base::toLowerAscii(get_extension(path));
    return std::ranges::find(extensions, extension) != extensions.end();
}

} // namespace

bool isDropped(std::string_view path) {
    return endsWithOne(path, AudioExtensions);
}

bool isMusic(std::string_view path) {
    return endsWithOne(path, kScanned);
}

std::int32_t scannedRows(std::string_view extension) {
    const std::string lower = base::toLowerAscii(extension);
    std::size_t rows = 0;
    for (const std::string_view known : kScanned) {
        // It is found from each place up to that where it occurs last.
        const std::size_t last = lower.rfind(known);
        rows += last == std::string::npos ? 0 : last + 1;
    }
    return static_cast<std::int32_t>(rows);
}

} // namespace tovik::playlist
