// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/CddbAnswer.h"

#include "base/LineReader.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "discs/TocText.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

namespace tovik::discs {

namespace {

constexpr std::string_view kEnd = ".";
constexpr std::string_view kBetween = " / ";
constexpr std::string_view kTrackKey = "TTITLE";
constexpr std::size_t kCodeDigits = 3;

/// The number in front of an answer's first line; 0 where there is none.
int codeOf(std::string_view line) {
    int number = 0;
    const char* const end = line.data() + std::min(line.size(), kCodeDigits);
    const auto [rest, error] = std::from_chars(line.data(), end, number);
    const bool whole = error == std::errc() && rest == line.data() + kCodeDigits &&
                       (line.size() == kCodeDigits || line[kCodeDigits] == ' ');
    return whole && number > 0 ? number : 0;
}

/// Cuts the text in front of the first blank off.
std::string_view takeWord(std::string_view& line) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, blank);
    line.remove_prefix(std::min(blank + 1, line.size()));
    return word;
}

bool isControl(char character) {
    constexpr unsigned char kFirstSign = 0x20;
    constexpr unsigned char kDelete = 0x7F;
    const auto byte = static_cast<unsigned char>(character);
    return byte < kFirstSign || byte == kDelete;
}

/// What people see of the bytes, blanks for what no line can hold.
std::string textOf(std::string_view bytes) {
    std::string text = base::displayText(bytes);
    std::ranges::replace_if(text, isControl, ' ');
    return std::string(base::trimmed(text));
}

/// The database writes line ends, tabs and its own sign as "\n", "\t" and "\\".
std::string unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (text[at] == '\\' && (next == 'n' || next == 't' || next == '\\')) {
            plain.push_back(next == '\\' ? '\\' : ' ');
            ++at;
        } else {
            plain.push_back(text[at]);
        }
    }
    return plain;
}

std::optional<Match> matchOf(std::string_view line) {
    Match match;
    match.category = takeWord(line);
    match.discId = takeWord(line);
    match.title = textOf(line);
    const bool plain = std::ranges::none_of(match.category + match.discId, isControl);
    if (match.category.empty() || match.discId.empty() || !plain) {
        return std::nullopt;
    }
    return match;
}

/// Goes through the lines up to the one that ends the answer; false without such a line.
template <typename Line>
bool untilEnd(base::LineReader& lines, Line take) {
    for (auto line = lines.next(); line; line = lines.next()) {
        if (*line == kEnd) {
            return true;
        }
        // What begins with a point has a second one in front of it.
        take(line->starts_with("..") ? line->substr(1) : *line);
    }
    return false;
}

/// The texts by their keys; those of a key that comes again are one text.
using Texts = std::map<std::string, std::string, std::less<>>;

std::string take(const Texts& texts, std::string_view key) {
    const auto found = texts.find(key);
    return found == texts.end() ? std::string() : textOf(unescaped(found->second));
}

std::optional<std::size_t> trackOf(std::string_view key) {
    if (!key.starts_with(kTrackKey)) {
        return std::nullopt;
    }
    key.remove_prefix(kTrackKey.size());
    std::size_t number = 0;
    const char* const end = key.data() + key.size();
    const auto [rest, error] = std::from_chars(key.data(), end, number);
    if (error != std::errc() || rest != end || number >= kMostTracks) {
        return std::nullopt;
    }
    return number;
}

DiscEntry entryOf(const Texts& texts) {
    DiscEntry entry{.year = take(texts, "DYEAR"), .genre = take(texts, "DGENRE")};
    const std::string disc = take(texts, "DTITLE");
    const std::size_t between = disc.find(kBetween);
    entry.artist = std::string(base::trimmed(std::string_view(disc).substr(0, between)));
    entry.title =
        between == std::string::npos
            ? disc
            : std::string(base::trimmed(std::string_view(disc).substr(between + kBetween.size())));
    for (const auto& [key, text] : texts) {
        if (const auto track = trackOf(key)) {
            entry.tracks.resize(std::max(entry.tracks.size(), *track + 1));
            entry.tracks[*track] = textOf(unescaped(text));
        }
    }
    return entry;
}

} // namespace

QueryAnswer parseQuery(std::string_view answer) {
    base::LineReader lines(answer);
    std::string_view first = lines.next().value_or(std::string_view());
    QueryAnswer result{.code = codeOf(first)};
    const auto keep = [&result](std::string_view line) {
        auto match = matchOf(line);
        if (match && result.matches.size() < kMostMatches) {
            result.matches.push_back(std::move(*match));
        }
    };
    if (result.code == code::kExactMatch) {
        takeWord(first);
        keep(first);
    } else if (result.code == code::kExactMatches || result.code == code::kInexactMatches) {
        if (!untilEnd(lines, keep)) {
            return {};
        }
    }
    return result;
}

ReadAnswer parseRead(std::string_view answer) {
    base::LineReader lines(answer);
    ReadAnswer result{.code = codeOf(lines.next().value_or(std::string_view()))};
    if (result.code != code::kEntryFollows) {
        return result;
    }
    Texts texts;
    const bool ended = untilEnd(lines, [&texts](std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && !line.starts_with('#')) {
            texts[std::string(line.substr(0, equals))] += line.substr(equals + 1);
        }
    });
    if (!ended) {
        return {};
    }
    result.entry = entryOf(texts);
    return result;
}

} // namespace tovik::discs
