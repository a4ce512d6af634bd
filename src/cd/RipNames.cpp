// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/RipNames.h"

#include "base/FileName.h"
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

std::string cleanRipName(std::string_view text) {
    constexpr std::size_t kLongestExtension = 4;
    std::string name = base::cleanFileName(text, kLongestExtension);
    return name.empty() ? ripName(text) : name;
}

std::string plainTrackFile(std::int32_t track, std::string_view extension) {
    return "TRACK" + std::to_string(track + 1) + std::string(extension);
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

tags::FreshTags tagsOf(const DiscForm& form, std::int32_t track) {
    tags::FreshTags told{.title = trackTitle(form, static_cast<std::size_t>(track)),
                         .artist = form.Text2[0],
                         .album = form.Text1[0],
                         .year = form.Text1[1],
                         .genre = form.Text2[2],
                         .encodedBy = "Tovik",
                         .track = static_cast<std::uint8_t>(track + 1)};
    if (form.V1Genre >= 0) {
        told.genreNumber = static_cast<std::uint8_t>(form.V1Genre);
    }
    return told;
}

std::string ripFolder(const host::Paths& paths, const std::string& rop) {
    return rop.starts_with('/') ? rop : host::drivePath(paths, rop);
}

} // namespace tovik::cd
