// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/StationLists.h"

#include "base/LineReader.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <map>

namespace tovik::sound {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kPlsHead = "[playlist]";
constexpr std::string_view kM3uHead = "#extm3u";
constexpr std::string_view kFileKey = "file";

constexpr std::array<std::string_view, 10> kListTypes = {
    "audio/x-mpegurl",       "audio/mpegurl",
    "application/x-mpegurl", "application/mpegurl",
    "audio/x-scpls",         "audio/scpls",
    "application/x-scpls",   "application/pls+xml",
    "application/pls",       "application/vnd.apple.mpegurl",
};

/// How the first bytes of a page look, in lower case.
constexpr std::array<std::string_view, 5> kPageHeads = {"<!doctype", "<html", "<head", "<?xml",
                                                        "<!--"};
constexpr std::size_t kLongestHead = kPlsHead.size();
constexpr std::array<std::string_view, 2> kSchemes = {"http://", "https://"};

bool isWhite(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string_view withoutLeadingWhite(std::string_view text) noexcept {
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    const auto* const first = std::ranges::find_if_not(text, isWhite);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

/// Whether it begins as "http:" does (RFC 3986, 3.1).
bool hasScheme(std::string_view reference) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto isMore = [](char c) {
        return (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
    };
    const auto* const end =
        std::ranges::find_if_not(reference, [&](char c) { return isLetter(c) || isMore(c); });
    return end != reference.end() && *end == ':' && isLetter(reference.front());
}

/// The addresses of "FileN=" in the order of N.
std::vector<std::string> plsAddresses(std::string_view text, std::string_view base) {
    std::map<unsigned, std::string> files;
    base::LineReader lines(text);
    while (const auto line = lines.next()) {
        const std::size_t equals = line->find('=');
        if (equals == std::string_view::npos) {
            continue;
        }
        const std::string key = base::toLowerAscii(withoutWhite(line->substr(0, equals)));
        unsigned number = 0;
        if (!key.starts_with(kFileKey) ||
            std::from_chars(key.data() + kFileKey.size(), key.data() + key.size(), number).ec !=
                std::errc()) {
            continue;
        }
        const bool full = files.size() == kMostAddresses;
        if (full && number > files.rbegin()->first) {
            continue;
        }
        std::string address = wholeAddress(base, withoutWhite(line->substr(equals + 1)));
        if (!address.empty() && files.try_emplace(number, std::move(address)).second && full) {
            files.erase(std::prev(files.end())); // what an address is seen from may be long
        }
    }
    std::vector<std::string> addresses;
    addresses.reserve(files.size());
    for (auto& [number, address] : files) {
        addresses.push_back(std::move(address));
    }
    return addresses;
}

std::vector<std::string> m3uAddresses(std::string_view text, std::string_view base) {
    std::vector<std::string> addresses;
    base::LineReader lines(text);
    while (addresses.size() < kMostAddresses) {
        const auto line = lines.next();
        if (!line) {
            break;
        }
        const std::string_view entry = withoutWhite(*line);
        if (entry.empty() || entry.front() == '#') {
            continue;
        }
        std::string address = wholeAddress(base, entry);
        if (!address.empty()) {
            addresses.push_back(std::move(address));
        }
    }
    return addresses;
}

} // namespace

AnswerKind kindOfAnswer(std::string_view contentType, std::string_view begin, bool all) {
    const std::string head = base::toLowerAscii(withoutLeadingWhite(begin).substr(0, kLongestHead));
    if (head.starts_with(kPlsHead) || head.starts_with(kM3uHead) || isHttpAddress(head)) {
        return AnswerKind::list;
    }
    const auto isHead = [&](std::string_view mark) { return head.starts_with(mark); };
    if (std::ranges::any_of(kPageHeads, isHead)) {
        return AnswerKind::page;
    }
    if (std::ranges::count(kListTypes, contentType) > 0) {
        return AnswerKind::list;
    }
    // Sound begins with a byte that no text begins with, or is told by four.
    const auto mayBecome = [&](std::string_view mark) { return mark.starts_with(head); };
    const bool mayBeText = mayBecome(kPlsHead) || mayBecome(kM3uHead) ||
                           std::ranges::any_of(kSchemes, mayBecome) ||
                           std::ranges::any_of(kPageHeads, mayBecome);
    if (mayBeText && !all) {
        return AnswerKind::unsure;
    }
    return contentType.starts_with("text/") ? AnswerKind::page : AnswerKind::sound;
}

std::vector<std::string> addressesOfList(std::string_view text, std::string_view base) {
    text = withoutLeadingWhite(text.substr(0, kMostListBytes));
    const bool pls = base::equalsIgnoringCase(text.substr(0, kPlsHead.size()), kPlsHead);
    return pls ? plsAddresses(text, base) : m3uAddresses(text, base);
}

bool isListOfPieces(std::string_view text) {
    return text.find("#EXT-X-") != std::string_view::npos;
}

std::string_view withoutWhite(std::string_view text) noexcept {
    text = withoutLeadingWhite(text);
    while (!text.empty() && isWhite(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool isHttpAddress(std::string_view text) {
    return std::ranges::any_of(kSchemes, [&](std::string_view scheme) {
        return text.size() > scheme.size() &&
               base::equalsIgnoringCase(text.substr(0, scheme.size()), scheme);
    });
}

std::string wholeAddress(std::string_view base, std::string_view reference) {
    if (hasScheme(reference)) {
        return isHttpAddress(reference) ? std::string(reference) : std::string();
    }
    if (!isHttpAddress(base) || reference.empty()) {
        return {};
    }
    const std::size_t host = base.find("://") + 3;
    if (reference.starts_with("//")) {
        std::string other = std::string(base.substr(0, host - 2)).append(reference);
        return isHttpAddress(other) ? other : std::string(); // there may be nothing behind them
    }
    const std::string_view whole = base.substr(0, base.find_first_of("?#", host));
    const std::size_t path = std::min(whole.find('/', host), whole.size());
    if (reference.front() == '?') {
        return std::string(whole).append(reference);
    }
    if (reference.front() == '/') {
        return std::string(whole.substr(0, path)).append(reference);
    }
    const std::size_t lastSlash = whole.rfind('/');
    if (lastSlash < path) {
        return std::string(whole).append("/").append(reference);
    }
    return std::string(whole.substr(0, lastSlash + 1)).append(reference);
}

} // namespace tovik::sound
