// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipNames.h"

#include "base/Text.h"
#include "config/LogFile.h"
#include "host/DrivePath.h"

#include <algorithm>

namespace tovik::cd {

std::string ripName(std::string_view text) {
    std::string name(text);
    std::ranges::replace(name, '/', '-');
    std::ranges::replace(name, '\0', '-');
    if (name == "." || name == "..") {
        name += '_';
    }
    return name;
}

std::string albumName(const DiscForm& form) {
    const std::string& artist = form.Text2.front();
    const std::string& album = form.Text1.front();
    return artist.empty() && album.empty() ? std::string() : artist + "-" + album;
}

std::string unnamedAlbum(std::string_view word, const host::LocalTime& now) {
    return std::string(word) + " (" + config::isoDate(now) + " " +
           base::replaceAll(config::logTime(now), ":", "-") + ")";
}

std::string trackTitle(const DiscForm& form, std::size_t track) {
    std::string name = trackName(form, track);
    return name.empty() ? "Track " + std::to_string(track + 1) : name;
}

std::string ripFolder(const host::Paths& paths, const std::string& rop) {
    return rop.starts_with('/') ? rop : host::drivePath(paths, rop);
}

} // namespace tovik::cd
