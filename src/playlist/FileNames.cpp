// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/FileNames.h"

#include "base/PathText.h"
#include "base/Text.h"
#include "base/Url.h"

namespace tovik::playlist {

std::string_view get_extension(std::string_view Name) noexcept {
    const std::size_t dot = Name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : Name.substr(dot + 1);
}

std::string_view GetLastBackSlash(std::string_view Path) noexcept {
    return base::lastPart(Path);
}

bool isNamedAfter(std::string_view title, std::string_view path) noexcept {
    const std::string_view name = GetLastBackSlash(path);
    return title == name || title == name.substr(0, name.rfind('.'));
}

bool isOnDisk(std::string_view path) noexcept {
    constexpr std::string_view kDiscTrack = "cda";
    return !path.empty() && !base::isWebUrl(path) &&
           !base::equalsIgnoringCase(get_extension(path), kDiscTrack);
}

} // namespace tovik::playlist
