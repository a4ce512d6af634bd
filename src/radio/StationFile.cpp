// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationFile.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>

namespace tovik::radio {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

void appendKey(std::string& file, std::string_view key, std::string_view value) {
    file += key;
    file += '=';
    const std::size_t begin = file.size();
    file += value;
    std::replace_if(
        file.begin() + static_cast<std::ptrdiff_t>(begin), file.end(),
        [](char byte) { return byte == '\r' || byte == '\n' || byte == '\0'; }, ' ');
    file += kLineEnd;
}

} // namespace

std::string addressKey(std::int32_t number) {
    return "Station" + std::to_string(number);
}

std::string nameKey(std::int32_t number) {
    return "Url" + std::to_string(number);
}

StationFile::StationFile(std::string_view bytes, std::size_t width) {
    for (config::ProfileEntry& entry : config::profileEntries(bytes, kStationSection, width)) {
        values_.try_emplace(base::toLowerAscii(entry.name), std::move(entry.value));
    }
}

std::string StationFile::value(std::string_view key) const {
    const auto found = values_.find(base::toLowerAscii(key));
    return found == values_.end() ? std::string() : found->second;
}

std::optional<std::int32_t> StationFile::count() const {
    const std::string text = value(kStationCount);
    if (text.empty()) {
        return 0;
    }
    std::int32_t count = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), count);
    const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return whole && count <= kMostStations ? std::optional(std::max(count, 0)) : std::nullopt;
}

void appendStationHead(std::string& file) {
    file += '[';
    file += kStationSection;
    file += ']';
    file += kLineEnd;
}

void appendStation(std::string& file, std::int32_t number, std::string_view address,
                   std::string_view name) {
    appendKey(file, addressKey(number), address);
    appendKey(file, nameKey(number), name);
}

void appendStationTail(std::string& file, std::int32_t count) {
    file += kLineEnd;
    appendKey(file, kStationCount, std::to_string(count));
}

} // namespace tovik::radio
