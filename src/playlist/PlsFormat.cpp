// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlsFormat.h"

#include "base/LineReader.h"
#include "base/Text.h"
#include "playlist/ListLines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace tovik::playlist {

namespace {

constexpr std::string_view kSection = "[playlist]";
constexpr std::string_view kNumberOfEntries = "NumberOfEntries";
constexpr std::string_view kFile = "File";
constexpr std::string_view kTitle = "Title";
constexpr std::string_view kLength = "Length";

bool beginsPlaylist(std::string_view heading) {
    return heading.ends_with(']') &&
           base::equalsIgnoringCase(base::trimmed(heading.substr(1, heading.size() - 2)),
                                    kSection.substr(1, kSection.size() - 2));
}

/// The number behind a word, as it is counted: without a sign or zeros ahead.
std::optional<std::int32_t> numberBehind(std::string_view key, std::string_view word) {
    if (key.size() <= word.size() || !base::equalsIgnoringCase(key.substr(0, word.size()), word)) {
        return std::nullopt;
    }
    const std::string_view digits = key.substr(word.size());
    std::int32_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = result.ec == std::errc() && result.ptr == digits.data() + digits.size();
    return whole && digits.front() >= '1' && digits.front() <= '9' ? std::optional(number)
                                                                   : std::nullopt;
}

void appendKey(std::string& list, std::string_view word, std::int32_t number,
               std::string_view value) {
    list += word;
    list += std::to_string(number);
    list += '=';
    appendOneLine(list, value);
}

} // namespace

PlsKeys::PlsKeys(std::string_view text) {
    // At once: a list that grows is moved again and again. Hardly a line bears no key.
    keys_.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')));
    base::LineReader lines(text);
    bool inside = false;
    while (const auto line = lines.next()) {
        const std::string_view trimmed = base::trimmed(*line);
        if (trimmed.starts_with('[')) {
            if (inside) {
                break;
            }
            inside = beginsPlaylist(trimmed);
            isPlaylist_ = inside;
        } else if (inside) {
            takeLine(*line);
        }
    }
    // Lists that programs write are in order already.
    if (!std::ranges::is_sorted(keys_, {}, &Key::number)) {
        std::ranges::stable_sort(keys_, {}, &Key::number);
    }
}

void PlsKeys::takeLine(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return;
    }
    const std::string_view key = base::trimmed(line.substr(0, equals));
    std::string_view value = line.substr(equals + 1);
    if (line.substr(0, equals).ends_with(' ')) {
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    }
    static constexpr std::array kWords = {std::pair(kFile, Kind::File),
                                          std::pair(kTitle, Kind::Title),
                                          std::pair(kLength, Kind::Length)};
    for (const auto& [word, kind] : kWords) {
        if (const auto number = numberBehind(key, word)) {
            keys_.push_back({*number, kind, value});
            return;
        }
    }
    if (!numberOfEntries_ && base::equalsIgnoringCase(key, kNumberOfEntries)) {
        numberOfEntries_ = value;
    }
}

std::int32_t PlsKeys::highestNumber() const noexcept {
    return keys_.empty() ? 0 : keys_.back().number;
}

std::optional<std::int32_t> PlsKeys::nextNumber() const noexcept {
    return next_ < keys_.size() ? std::optional(keys_[next_].number) : std::nullopt;
}

PlsEntry PlsKeys::entry(std::int32_t number) {
    PlsEntry entry;
    for (; next_ < keys_.size() && keys_[next_].number <= number; ++next_) {
        const Key& key = keys_[next_];
        if (key.number == number) {
            std::optional<std::string_view>& value = key.kind == Kind::File    ? entry.file
                                                     : key.kind == Kind::Title ? entry.title
                                                                               : entry.length;
            value = value ? value : key.value;
        }
    }
    return entry;
}

void appendPlsHead(std::string& list) {
    appendOneLine(list, kSection);
}

void appendPlsEntry(std::string& list, std::int32_t number, std::int32_t seconds,
                    std::string_view title, std::string_view fileName) {
    appendKey(list, kFile, number, fileName);
    appendKey(list, kTitle, number, title);
    appendKey(list, kLength, number, std::to_string(seconds));
}

void appendPlsTail(std::string& list, std::int32_t entries) {
    list += kNumberOfEntries;
    list += '=';
    appendOneLine(list, std::to_string(entries));
    appendOneLine(list, "Version=2");
}

} // namespace tovik::playlist
