// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MimeTypes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tovik::desktop {

namespace {

constexpr std::size_t kMostTypes = 2;

struct TypeRow {
    std::string_view extension;
    std::array<std::string_view, kMostTypes> types;
};

constexpr auto kTypes = std::to_array<TypeRow>({
    {"mo3", {"audio/x-mo3"}},
    {"xm", {"audio/x-xm"}},
    {"mod", {"audio/x-mod"}},
    {"s3m", {"audio/x-s3m"}},
    {"it", {"audio/x-it"}},
    {"mtm", {"audio/x-mod"}},
    {"umx", {"audio/x-umx"}},
    {"flac", {"audio/flac"}},
    {"fla", {"audio/flac"}},
    {"mp3", {"audio/mpeg"}},
    {"ogg", {"audio/x-vorbis+ogg", "audio/ogg"}},
    {"wav", {"audio/x-wav"}},
    {"wma", {"audio/x-ms-wma"}},
    {"m3u", {"audio/x-mpegurl"}},
    {"pls", {"audio/x-scpls"}},
});

} // namespace

std::span<const std::string_view> mimeTypesOf(std::string_view extension) noexcept {
    const auto* const row = std::ranges::find(kTypes, extension, &TypeRow::extension);
    if (row == kTypes.end()) {
        return {};
    }
    const auto count = static_cast<std::size_t>(
        std::ranges::count_if(row->types, [](std::string_view type) { return !type.empty(); }));
    return std::span(row->types).first(count);
}

} // namespace tovik::desktop
