// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/NameCache.h"

#include <algorithm>
#include <charconv>

namespace tovik::sound {

namespace {

/// What stands before the first `separator`; the rest of the text stays behind it. Nothing without
/// one.
std::optional<std::string_view> cut(std::string_view& text, char separator) {
    const std::size_t place = text.find(separator);
    if (place == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view head = text.substr(0, place);
    text.remove_prefix(place + 1);
    return head;
}

std::optional<std::int64_t> number(std::optional<std::string_view> text) {
    std::int64_t value = 0;
    if (!text) {
        return std::nullopt;
    }
    const char* const end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

bool canBeKept(std::string_view text) {
    return text.find_first_of(std::string_view("\t\r\n\0", 4)) == std::string_view::npos;
}

} // namespace

NameCache::NameCache(std::string_view bytes) {
    bytes = bytes.substr(0, kMostBytes);
    while (rows_.size() < kMostRows) {
        std::optional<std::string_view> line = cut(bytes, '\n');
        if (!line) {
            return;
        }
        const auto size = number(cut(*line, ' '));
        const auto time = number(cut(*line, '\t'));
        const auto path = cut(*line, '\t');
        if (size && time && path) {
            add(*path, {.size = *size, .time = *time}, *line);
        }
    }
}

std::optional<std::string> NameCache::find(std::string_view path, const FileStamp& stamp) const {
    const auto row = std::ranges::find_if(
        rows_, [&](const Row& one) { return one.path == path && one.stamp == stamp; });
    return row == rows_.end() ? std::nullopt : std::optional(row->name);
}

void NameCache::add(std::string_view path, const FileStamp& stamp, std::string_view name) {
    if (!path.empty() && canBeKept(path) && canBeKept(name) && rows_.size() < kMostRows) {
        rows_.push_back({.path = std::string(path), .stamp = stamp, .name = std::string(name)});
    }
}

std::string NameCache::bytes() const {
    std::string text;
    for (const Row& row : rows_) {
        text += std::to_string(row.stamp.size) + ' ' + std::to_string(row.stamp.time) + '\t' +
                row.path + '\t' + row.name + '\n';
    }
    return text;
}

} // namespace tovik::sound
