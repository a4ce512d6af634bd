// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Profile.h"

#include "base/LineReader.h"
#include "base/Text.h"

#include <algorithm>

namespace tovik::config {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kComment = ';';

/// The bytes from `begin` up to, but without, `end`.
struct Extent {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// A line with a key in the section that is looked for.
struct KeyLine {
    std::string_view name;
    std::string_view value;
    Extent whole; ///< with its line end
};

std::string_view unquoted(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string valueOf(const KeyLine& line, std::size_t width = kProfileValueWidth) {
    return std::string(base::cutToWidth(unquoted(line.value), width));
}

bool isSection(std::string_view line, std::string_view section) {
    return line.size() >= 2 && line.front() == '[' && line.back() == ']' &&
           base::equalsIgnoringCase(base::trimmed(line.substr(1, line.size() - 2)), section);
}

/// The first section of a name, taken apart.
class SectionView {
public:
    SectionView(std::string_view bytes, std::string_view section) : bytes_(bytes) {
        // Editors put a mark in front of UTF-8; it is no part of the first section's line.
        const std::size_t mark = bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
        base::LineReader lines(bytes.substr(mark));
        while (const auto next = lines.next()) {
            const std::string_view line = base::trimmed(*next);
            const Extent whole = extentOf(*next);
            if (line.starts_with('[')) {
                if (found_) {
                    break;
                }
                found_ = isSection(line, section);
                extent_ = found_ ? whole : extent_;
                filledEnd_ = whole.end;
                continue;
            }
            if (found_) {
                extent_.end = whole.end;
                filledEnd_ = line.empty() ? filledEnd_ : whole.end;
                addKey(line, whole);
            }
        }
    }

    [[nodiscard]] bool found() const { return found_; }

    /// Heading and lines.
    [[nodiscard]] Extent extent() const { return extent_; }

    /// Behind the last line that is not blank.
    [[nodiscard]] std::size_t filledEnd() const { return filledEnd_; }

    [[nodiscard]] const std::vector<KeyLine>& keys() const { return keys_; }

    [[nodiscard]] const KeyLine* key(std::string_view name) const {
        const auto found = std::ranges::find_if(keys_, [name](const KeyLine& candidate) {
            return base::equalsIgnoringCase(candidate.name, name);
        });
        return found == keys_.end() ? nullptr : &*found;
    }

private:
    [[nodiscard]] Extent extentOf(std::string_view line) const {
        const auto begin = static_cast<std::size_t>(line.data() - bytes_.data());
        std::size_t end = begin + line.size();
        if (bytes_.substr(end).starts_with(kLineEnd)) {
            end += kLineEnd.size();
        } else if (end < bytes_.size()) {
            ++end;
        }
        return {begin, end};
    }

    void addKey(std::string_view line, Extent whole) {
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos) {
            keys_.push_back({base::trimmed(line.substr(0, equals)),
                             base::trimmed(line.substr(equals + 1)), whole});
        }
    }

    std::string_view bytes_;
    bool found_ = false;
    Extent extent_;
    std::size_t filledEnd_ = 0;
    std::vector<KeyLine> keys_;
};

std::string without(std::string_view bytes, Extent part) {
    return std::string(bytes.substr(0, part.begin)).append(bytes.substr(part.end));
}

std::string onOneLine(std::string_view value) {
    std::string line(value);
    std::ranges::replace_if(
        line, [](char byte) { return byte == '\r' || byte == '\n' || byte == '\0'; }, ' ');
    return line;
}

} // namespace

std::optional<std::string> findProfileValue(std::string_view bytes, std::string_view section,
                                            std::string_view key) {
    const SectionView view(bytes, section);
    const KeyLine* const line = view.key(key);
    if (line == nullptr) {
        return std::nullopt;
    }
    return valueOf(*line);
}

std::vector<ProfileEntry> profileEntries(std::string_view bytes, std::string_view section,
                                         std::size_t width) {
    std::vector<ProfileEntry> entries;
    const SectionView view(bytes, section);
    for (const KeyLine& line : view.keys()) {
        if (!line.name.starts_with(kComment)) {
            entries.push_back({std::string(line.name), valueOf(line, width)});
        }
    }
    return entries;
}

std::string profileValue(std::string_view bytes, std::string_view section, std::string_view key) {
    return findProfileValue(bytes, section, key).value_or("");
}

std::vector<std::string> profileKeys(std::string_view bytes, std::string_view section) {
    std::vector<std::string> names;
    const SectionView view(bytes, section);
    for (const KeyLine& line : view.keys()) {
        if (!line.name.starts_with(kComment)) {
            names.emplace_back(line.name);
        }
    }
    return names;
}

std::string withProfileValue(std::string_view bytes, std::string_view section, std::string_view key,
                             std::string_view value) {
    std::string line = std::string(key) + "=" + onOneLine(value) + std::string(kLineEnd);
    const SectionView view(bytes, section);
    Extent place{view.filledEnd(), view.filledEnd()};
    if (const KeyLine* const present = view.key(key)) {
        place = present->whole;
    } else if (!view.found()) {
        place = {bytes.size(), bytes.size()};
        line.insert(0, "[" + std::string(section) + "]" + std::string(kLineEnd));
    }
    std::string changed(bytes.substr(0, place.begin));
    if (!changed.empty() && !changed.ends_with('\n') && !changed.ends_with('\r') &&
        changed != kByteOrderMark) {
        changed += kLineEnd;
    }
    return changed.append(line).append(bytes.substr(place.end));
}

std::string withoutProfileKey(std::string_view bytes, std::string_view section,
                              std::string_view key) {
    const SectionView view(bytes, section);
    const KeyLine* const present = view.key(key);
    return present == nullptr ? std::string(bytes) : without(bytes, present->whole);
}

std::string withoutProfileSection(std::string_view bytes, std::string_view section) {
    const SectionView view(bytes, section);
    return view.found() ? without(bytes, view.extent()) : std::string(bytes);
}

} // namespace tovik::config
