// SPDX-License-Identifier: GPL-3.0-or-later
// Renaming a file by its tag.
#include "base/Text.h"
#include "tags/clsID3.h"

#include <array>
#include <cstdio>
#include <utility>

#include <fcntl.h>

namespace tovik::tags {

namespace {

constexpr std::string_view kEnding = ".mp3";

/// What a file name cannot hold, and what stands in its place; in this order.
constexpr std::array<std::pair<char, std::string_view>, 12> kReplacements{{
    {'\0', ""},
    {'\x01', ""},
    {'"', "'"},
    {'*', ""},
    {'?', ""},
    {'/', ""},
    {'\\', ""},
    {':', "."},
    {'<', "["},
    {'>', "]"},
    {'|', ""},
    {'\n', " "},
}};

void fill(std::string& format, std::string_view letter, std::string_view text) {
    format = base::replaceAll(format, letter, text);
}

std::string twoDigits(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

} // namespace

void clsID3::fillTagLetters(std::string& format) const {
    fill(format, "%a", artist_.trimmed());
    fill(format, "%t", album_.trimmed());
    fill(format, "%n", title_.trimmed());
    fill(format, "%i", artist_.trimmed());
    fill(format, "%y", year_.trimmed());
    fill(format, "%g", genre_.trimmed());
    fill(format, "%c", comment_.trimmed());
}

void clsID3::fillHeaderLetters(std::string& format) {
    const auto seconds = static_cast<std::int32_t>(PlayTime());
    fill(format, "%b", bitrate());
    fill(format, "%f", SampleRate());
    fill(format, "%s", std::to_string(seconds));
    fill(format, "%m", std::to_string(seconds / 60) + ":" + twoDigits(seconds % 60));
    fill(format, "%x", ChannelMode());
    fill(format, "%l", Layer());
    fill(format, "%v", MPEGVersion());
}

std::optional<std::int32_t> clsID3::RenameFile(std::string& format) {
    if (!tagPresent_) {
        return std::nullopt;
    }
    fillTagLetters(format);
    format = std::string(base::trimmed(format));
    if (format.ends_with('-') || format.ends_with('_')) {
        dialogs_.showMessage({.text = format});
        format.pop_back();
        dialogs_.showMessage({.text = format});
    }
    format += " (%m)";
    fillHeaderLetters(format);
    for (const auto& [character, text] : kReplacements) {
        fill(format, std::string_view(&character, 1), text);
    }
    if (!format.ends_with(kEnding)) {
        format += kEnding;
    }
    // Refused by the system where a file of that name stands: looking first would be too early.
    const std::string renamed = path_ + format;
    if (::renameat2(AT_FDCWD, fullName_.c_str(), AT_FDCWD, renamed.c_str(), RENAME_NOREPLACE) !=
        0) {
        return -1;
    }
    FullName(renamed);
    return 1;
}

} // namespace tovik::tags
