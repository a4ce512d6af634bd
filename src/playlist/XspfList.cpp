// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/XspfList.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/TimeText.h"
#include "base/Url.h"
#include "config/XmlTree.h"
#include "playlist/ListNames.h"
#include "playlist/stdSS.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tovik::playlist {

namespace {

using config::XmlElement;

constexpr std::string_view kPlaylist = "playlist";
constexpr std::string_view kTrackList = "trackList";
constexpr std::string_view kTrack = "track";
constexpr std::string_view kLocation = "location";
constexpr std::string_view kTitle = "title";
constexpr std::string_view kCreator = "creator";
constexpr std::string_view kDuration = "duration";
constexpr std::string_view kBase = "xml:base";

constexpr double kMillisecondsPerSecond = 1000;

/// On one line and without what stands round it.
std::string lineOf(std::string text) {
    std::ranges::replace_if(
        text,
        [](char character) { return character == '\n' || character == '\r' || character == '\t'; },
        ' ');
    return std::string(base::trimmed(text));
}

/// The text of a child.
std::string lineOf(const XmlElement& track, std::string_view name) {
    const XmlElement* const child = track.child(name);
    return child == nullptr ? std::string() : lineOf(child->text);
}

/// From where the references in an element count: its own base, which counts from that round it.
std::string baseOf(const XmlElement& element, const std::string& outer) {
    const auto own = std::ranges::find(element.attributes, kBase,
                                       &decltype(element.attributes)::value_type::first);
    const std::string reference =
        own == element.attributes.end() ? std::string() : lineOf(own->second);
    return reference.empty() ? outer : baseFolder(reference, outer);
}

/// "magnet:?xt=urn:x", which only looks like a file's name.
bool hasForeignScheme(std::string_view location) {
    const std::size_t colon = location.find_first_of(":/?#");
    const bool hasScheme = colon != std::string_view::npos && colon > 1 && location[colon] == ':';
    return hasScheme && !base::isWebUrl(location) && !base::pathFromFileUrl(location);
}

/// The file or address of a track; empty without a location.
std::string fileOf(const XmlElement& track, const std::string& outer) {
    const std::string trackBase = baseOf(track, outer);
    std::string first;
    for (const XmlElement& child : track.children) {
        const std::string location = child.name == kLocation ? lineOf(child.text) : std::string();
        if (location.empty()) {
            continue;
        }
        std::string file = resolvedReference(location, baseOf(child, trackBase));
        if (canBePlayed(file) && !hasForeignScheme(location)) {
            return file;
        }
        if (first.empty()) {
            first = std::move(file);
        }
    }
    return first;
}

std::string titleOf(const XmlElement& track) {
    const std::string title = lineOf(track, kTitle);
    const std::string creator = lineOf(track, kCreator);
    return title.empty() || creator.empty() ? title : creator + " - " + title;
}

std::int32_t secondsOf(const XmlElement& track) {
    try {
        const double milliseconds = base::textToNumber(lineOf(track, kDuration));
        return std::max(base::toInt32(milliseconds / kMillisecondsPerSecond), 0);
    } catch (const base::RuntimeError&) {
        return 0; // not known
    }
}

XmlElement textElement(std::string_view name, std::string text) {
    return {.name = std::string(name), .text = std::move(text)};
}

} // namespace

std::optional<std::vector<ListEntry>> xspfEntries(std::string_view text, const ListManner& manner) {
    const std::optional<XmlElement> root = config::readXmlTree(text);
    const XmlElement* const tracks =
        root && root->name == kPlaylist ? root->child(kTrackList) : nullptr;
    if (tracks == nullptr) {
        return std::nullopt;
    }
    const std::string outer = baseOf(*tracks, baseOf(*root, manner.folder));
    std::vector<ListEntry> entries;
    entries.reserve(tracks->children.size());
    for (const XmlElement& track : tracks->children) {
        std::string file = track.name == kTrack ? fileOf(track, outer) : std::string();
        if (file.empty()) {
            continue;
        }
        const std::int32_t seconds = secondsOf(track);
        std::string title = titleOfEntry(titleOf(track), file, manner);
        entries.push_back({.fileName = std::move(file),
                           .title = std::move(title),
                           .timeText = base::lastFive(seconds),
                           .seconds = seconds});
    }
    return entries;
}

std::string xspfText(const stdSS& list, const ListManner& manner) {
    XmlElement tracks{.name = std::string(kTrackList)};
    for (Row row = 1; row <= list.ListCount(); ++row) {
        XmlElement& track = tracks.children.emplace_back(XmlElement{.name = std::string(kTrack)});
        track.children.push_back(
            textElement(kLocation, referenceInList(list.text(row, RowText::FileName),
                                                   manner.comfort.savesRelativeNames
                                                       ? std::string_view(manner.folder)
                                                       : std::string_view())));
        if (const std::string_view title = list.text(row, RowText::Title); !title.empty()) {
            track.children.push_back(textElement(kTitle, std::string(title)));
        }
        if (const std::int64_t seconds = list.seconds(row); seconds > 0) {
            const auto perSecond = static_cast<std::int64_t>(kMillisecondsPerSecond);
            track.children.push_back(textElement(kDuration, std::to_string(seconds * perSecond)));
        }
    }
    XmlElement root{.name = std::string(kPlaylist),
                    .attributes = {{"version", "1"}, {"xmlns", "http://xspf.org/ns/0/"}}};
    root.children.push_back(std::move(tracks));
    return config::xmlFileOf(root);
}

} // namespace tovik::playlist
