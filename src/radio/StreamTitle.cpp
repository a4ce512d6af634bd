// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StreamTitle.h"

#include "base/Controls.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "radio/CharacterReferences.h"

#include <algorithm>
#include <utility>

namespace tovik::radio {

namespace {

constexpr std::string_view kTitleMark = "StreamTitle='";
constexpr std::string_view kTitleEnd = "';";
constexpr std::string_view kNameMark = "icy-name:";
constexpr std::string_view kForbidden = ":/\\?*|<>\"";
constexpr std::string_view kExtension = ".mp3";
constexpr std::size_t kMostNameBytes = 255;

} // namespace

StreamTitle streamTitle(std::string_view metadata, bool whole) noexcept {
    metadata = metadata.substr(0, metadata.find('\0'));
    if (!metadata.starts_with(kTitleMark)) {
        return {};
    }
    const std::string_view text = metadata.substr(kTitleMark.size());
    if (whole) {
        const std::size_t quote = text.find(kTitleEnd);
        return quote == std::string_view::npos
                   ? StreamTitle{TitleAnswer::broken}
                   : StreamTitle{TitleAnswer::title, text.substr(0, quote)};
    }
    const std::size_t end = text.find(';');
    // The character before the semicolon is the closing quote.
    if (end == std::string_view::npos || end == 0) {
        return {TitleAnswer::broken};
    }
    return {TitleAnswer::title, text.substr(0, end - 1)};
}

std::optional<std::string> shownTitle(std::string_view metadata, bool whole) {
    metadata = metadata.substr(0, metadata.find('\0'));
    const StreamTitle told = streamTitle(metadata, whole);
    if (told.answer != TitleAnswer::title) {
        return std::nullopt;
    }
    if (whole) {
        return shownServerText(told.title);
    }
    const std::string_view text = metadata.substr(kTitleMark.size());
    const std::size_t end = std::min(findBesideReferences(text, ';'), text.size());
    return shownServerText(text.substr(0, end - std::min<std::size_t>(end, 1)));
}

std::optional<std::string_view> stationName(std::string_view headers) noexcept {
    std::optional<std::string_view> name;
    bool status = true;
    while (!headers.empty()) {
        const std::string_view header = headers.substr(0, headers.find('\0'));
        headers.remove_prefix(std::min(header.size() + 1, headers.size()));
        if (std::exchange(status, false)) {
            continue;
        }
        if (header.empty()) {
            break;
        }
        if (header.starts_with(kNameMark)) {
            name = header.substr(kNameMark.size());
        }
    }
    return name;
}

std::string CleanName(std::string_view text) {
    std::string clean;
    for (const char character : text) {
        if (kForbidden.find(character) == std::string_view::npos) {
            clean += character;
        }
    }
    return clean;
}

std::string songFileName(std::string_view title) {
    const std::string name = CleanName(base::displayText(title));
    return std::string(base::cutToWidth(name, kMostNameBytes - kExtension.size())) +
           std::string(kExtension);
}

std::string shownText(std::string_view text) {
    const std::string shown = base::withoutControls(base::displayText(text));
    return std::string(base::trimmed(shown));
}

std::string shownServerText(std::string_view text) {
    return shownText(withoutReferences(base::displayText(text)));
}

} // namespace tovik::radio
