// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListManner.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Url.h"
#include "playlist/FileNames.h"
#include "playlist/ListNames.h"

#include <algorithm>

namespace tovik::playlist {

std::string fileOfEntry(std::string_view name, const ListManner& manner) {
    return manner.comfort.resolvesNames && !manner.folder.empty()
               ? resolvedName(name, manner.folder)
               : std::string(name);
}

std::string titleOfEntry(std::string_view title, std::string_view fileName,
                         const ListManner& manner) {
    if (!manner.comfort.namesUntitled || !base::trimmed(title).empty()) {
        return std::string(title);
    }
    std::string name(base::isUrl(fileName) ? fileName : GetLastBackSlash(fileName));
    std::ranges::replace_if(
        name, [](char character) { return character == '\r' || character == '\n'; }, ' ');
    return name;
}

std::string nameForList(std::string_view fileName, const ListManner& manner) {
    return manner.comfort.savesRelativeNames && !manner.folder.empty()
               ? nameInList(fileName, manner.folder)
               : std::string(fileName);
}

std::int32_t knownSeconds(std::string_view length) {
    length = base::trimmed(length);
    try {
        const double seconds = base::textToNumber(length.substr(0, length.find(' ')));
        return std::max(base::toInt32(seconds), 0);
    } catch (const base::RuntimeError&) {
        return 0;
    }
}

} // namespace tovik::playlist
