// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/M3uFormat.h"

#include "playlist/ListLines.h"

namespace tovik::playlist {

std::optional<M3uInfo> parseM3uInfo(std::string_view line) noexcept {
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    M3uInfo info{.title = line.substr(comma + 1)};
    const std::size_t colon = line.find(':');
    if (colon < comma) {
        info.seconds = line.substr(colon + 1, comma - colon - 1);
    } else if (colon != std::string_view::npos) {
        info.seconds = std::string_view();
    }
    return info;
}

std::string_view m3uFileName(std::string_view line) noexcept {
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

void appendM3uHead(std::string& list) {
    appendOneLine(list, kM3uHead);
}

void appendM3uEntry(std::string& list, std::int32_t seconds, std::string_view title,
                    std::string_view fileName) {
    list += kM3uInfo;
    list += ':';
    list += std::to_string(seconds);
    list += ',';
    appendOneLine(list, title);
    appendOneLine(list, fileName);
}

} // namespace tovik::playlist
