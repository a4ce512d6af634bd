// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagTitle.h"

#include "tags/ShownField.h"

#include <string_view>

namespace tovik::tags {

std::optional<std::string> tagTitle(const cMP3ID3v1& tag) {
    const std::string_view artist = shownField(tag.Artist());
    const std::string_view title = shownField(tag.Title());
    if (artist.empty() || title.empty()) {
        return std::nullopt;
    }
    return std::string(artist) + "-" + std::string(title);
}

} // namespace tovik::tags
