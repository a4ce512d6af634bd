// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MimeApps.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace tovik::desktop {

namespace {

constexpr std::string_view kDefaults = "[Default Applications]";
constexpr std::string_view kAdded = "[Added Associations]";
constexpr std::string_view kRemoved = "[Removed Associations]";

using Lines = std::vector<std::string>;
using Names = std::vector<std::string>;

Lines linesOf(std::string_view bytes) {
    Lines lines;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        lines.emplace_back(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
}

/// Bytes that nothing changed stay as they were, also without an end of the last line.
std::string bytesOf(const Lines& lines, std::string_view before) {
    if (lines == linesOf(before)) {
        return std::string(before);
    }
    std::string bytes;
    for (const std::string& line : lines) {
        bytes.append(line).append("\n");
    }
    return bytes;
}

/// The names behind "type=", each ended or parted by a semicolon.
Names namesOf(std::string_view list) {
    Names names;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        if (const std::string_view name = base::trimmed(list.substr(0, end)); !name.empty()) {
            names.emplace_back(name);
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return names;
}

/// A line "type=names", if it is one.
struct Entry {
    std::string type;
    Names names;

    [[nodiscard]] static std::optional<Entry> of(std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || line.starts_with('#') || line.starts_with('[')) {
            return std::nullopt;
        }
        return Entry{std::string(base::trimmed(line.substr(0, equals))),
                     namesOf(line.substr(equals + 1))};
    }
};

std::string lineOf(const std::string& type, const Names& names) {
    std::string text = type + "=";
    for (const std::string& name : names) {
        text.append(name).append(";");
    }
    return text;
}

/// The lines of a section, as places: behind its heading, and where the next one begins. Nothing
/// where there is no such section.
struct Section {
    std::size_t begin;
    std::size_t end;
};

bool isHeading(std::string_view line, std::string_view heading) {
    return base::trimmed(line) == heading;
}

std::optional<Section> sectionOf(const Lines& lines, std::string_view heading) {
    const auto found = std::ranges::find_if(
        lines, [&](const std::string& line) { return isHeading(line, heading); });
    if (found == lines.end()) {
        return std::nullopt;
    }
    const auto next = std::find_if(found + 1, lines.end(),
                                   [](const std::string& line) { return line.starts_with('['); });
    return Section{static_cast<std::size_t>(found - lines.begin()) + 1,
                   static_cast<std::size_t>(next - lines.begin())};
}

/// The entry of a type in a section, and its line.
std::optional<std::pair<Entry, std::size_t>> findEntry(const Lines& lines, std::string_view heading,
                                                       std::string_view type) {
    const auto section = sectionOf(lines, heading);
    for (std::size_t i = section ? section->begin : 0; section && i < section->end; ++i) {
        if (auto entry = Entry::of(lines.at(i)); entry && entry->type == type) {
            return std::pair(std::move(*entry), i);
        }
    }
    return std::nullopt;
}

/// Behind the last line of the section that is not blank, so that sections stay apart as they were.
void addLine(Lines& lines, std::string_view heading, const std::string& line) {
    auto section = sectionOf(lines, heading);
    if (!section) {
        lines.emplace_back(heading);
        section = Section{lines.size(), lines.size()};
    }
    std::size_t place = section->end;
    while (place > section->begin && base::trimmed(lines.at(place - 1)).empty()) {
        --place;
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), line);
}

void putFirst(Lines& lines, std::string_view heading, const std::string& type,
              std::string_view id) {
    Names names{std::string(id)};
    if (const auto found = findEntry(lines, heading, type)) {
        std::ranges::remove_copy(found->first.names, std::back_inserter(names), id);
        lines.at(found->second) = lineOf(type, names);
    } else {
        addLine(lines, heading, lineOf(type, names));
    }
}

void putLast(Lines& lines, std::string_view heading, const std::string& type, std::string_view id) {
    auto found = findEntry(lines, heading, type);
    if (!found) {
        addLine(lines, heading, lineOf(type, Names{std::string(id)}));
    } else if (Names& names = found->first.names; std::ranges::find(names, id) == names.end()) {
        names.emplace_back(id);
        lines.at(found->second) = lineOf(type, names);
    }
}

/// Takes the program out of the entries of a section that `chosen` names, and drops those that are
/// empty then. Returns whether there was such an entry.
template <typename Chosen>
bool takeOut(Lines& lines, std::string_view heading, std::string_view id, const Chosen& chosen) {
    const auto section = sectionOf(lines, heading);
    if (!section) {
        return false;
    }
    bool found = false;
    for (std::size_t i = section->end; i-- > section->begin;) {
        auto entry = Entry::of(lines.at(i));
        if (!entry || !chosen(entry->type) || std::erase(entry->names, id) == 0) {
            continue;
        }
        found = true;
        if (entry->names.empty()) {
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            lines.at(i) = lineOf(entry->type, entry->names);
        }
    }
    return found;
}

/// Takes the program out of a section, and the section away where nothing is left of it.
void forget(Lines& lines, std::string_view heading, std::string_view id) {
    if (!takeOut(lines, heading, id, [](const std::string&) { return true; })) {
        return;
    }
    const auto section = sectionOf(lines, heading);
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(section->begin);
    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(section->end);
    if (std::all_of(begin, end,
                    [](const std::string& line) { return base::trimmed(line).empty(); })) {
        lines.erase(begin - 1, end);
    }
}

} // namespace

std::string withDefaults(std::string_view bytes, std::span<const std::string> types,
                         std::string_view desktopId) {
    Lines lines = linesOf(bytes);
    for (const std::string& type : types) {
        putFirst(lines, kDefaults, type, desktopId);
        putFirst(lines, kAdded, type, desktopId);
        takeOut(lines, kRemoved, desktopId,
                [&](const std::string& other) { return other == type; });
    }
    return bytesOf(lines, bytes);
}

std::vector<std::string> refusedTypes(std::string_view bytes, std::span<const std::string> types,
                                      std::string_view desktopId) {
    const Lines lines = linesOf(bytes);
    std::vector<std::string> refused;
    std::ranges::copy_if(types, std::back_inserter(refused), [&](const std::string& type) {
        const auto found = findEntry(lines, kRemoved, type);
        return found &&
               std::ranges::find(found->first.names, desktopId) != found->first.names.end();
    });
    return refused;
}

std::string withoutProgram(std::string_view bytes, std::string_view desktopId,
                           std::span<const std::string> refused) {
    Lines lines = linesOf(bytes);
    forget(lines, kDefaults, desktopId);
    forget(lines, kAdded, desktopId);
    for (const std::string& type : refused) {
        putLast(lines, kRemoved, type, desktopId);
    }
    return bytesOf(lines, bytes);
}

} // namespace tovik::desktop
