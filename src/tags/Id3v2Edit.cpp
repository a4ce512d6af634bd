// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/Id3v2Edit.h"

#include "base/Text.h"
#include "base/Unicode.h"
#include "tags/TagWalk.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tovik::tags {

namespace {

constexpr std::string_view kMark = "ID3";
constexpr std::size_t kFlagsAt = 5;
constexpr std::size_t kSizeAt = 6;
constexpr std::size_t kFooterBytes = 10;
constexpr unsigned kFooter = 0x10;
constexpr unsigned kKeptFlags = 0x80;  ///< of the newest version: each frame says so, too
constexpr std::size_t kPadding = 1024; ///< behind a tag that had no room
constexpr std::size_t kMostTagBytes = std::size_t{256} << 20;

/// Which frames hold a field; the first one is written.
struct Ids {
    EditField field;
    std::array<std::string_view, 2> old; ///< of version 2.2
    std::array<std::string_view, 2> usual;
    std::array<std::string_view, 2> newest;
};

constexpr std::array<Ids, kEditFields> kIds{{
    {EditField::title, {"TT2"}, {"TIT2"}, {"TIT2"}},
    {EditField::artist, {"TP1"}, {"TPE1"}, {"TPE1"}},
    {EditField::album, {"TAL"}, {"TALB"}, {"TALB"}},
    {EditField::year, {"TYE"}, {"TYER", "TDRC"}, {"TDRC", "TYER"}},
    {EditField::comment, {"COM"}, {"COMM"}, {"COMM"}},
    {EditField::track, {"TRK"}, {"TRCK"}, {"TRCK"}},
    {EditField::genre, {"TCO"}, {"TCON"}, {"TCON"}},
    {EditField::composer, {"TCM"}, {"TCOM"}, {"TCOM"}},
    {EditField::originalArtist, {"TOA"}, {"TOPE"}, {"TOPE"}},
    {EditField::copyright, {"TCR"}, {"TCOP"}, {"TCOP"}},
    {EditField::artistUrl, {"WAR"}, {"WOAR"}, {"WOAR"}},
    {EditField::encodedBy, {"TEN"}, {"TENC"}, {"TENC"}},
}};

const std::array<std::string_view, 2>& idsOf(EditField field, unsigned version) {
    const Ids& ids = kIds.at(static_cast<std::size_t>(field));
    if (version == kOldestTag) {
        return ids.old;
    }
    return version == kNewestTag ? ids.newest : ids.usual;
}

std::string sizeBytes(std::size_t size, std::size_t count, unsigned bitsPerByte) {
    std::string bytes;
    for (std::size_t i = count; i-- > 0;) {
        bytes += static_cast<char>((size >> (bitsPerByte * i)) & ((1U << bitsPerByte) - 1U));
    }
    return bytes;
}

std::string head(unsigned version, unsigned flags, std::size_t size) {
    return std::string(kMark) + static_cast<char>(version) + '\0' + static_cast<char>(flags) +
           sizeBytes(size, 4, 7);
}

/// A text with its encoding, and the same encoding's empty text with its end.
struct Encoded {
    char encoding;
    std::string text;
    std::string nothing;
};

Encoded encoded(const std::string& text, unsigned version) {
    const std::u32string characters = base::charactersOf(text);
    const auto fits = [](char32_t limit) { return [limit](char32_t c) { return c < limit; }; };
    constexpr char32_t kAscii = 0x80;
    constexpr char32_t kLatin1 = 0x100;
    if (version == kNewestTag && !std::ranges::all_of(characters, fits(kAscii))) {
        return {'\3', text, std::string(1, '\0')};
    }
    if (!std::ranges::all_of(characters, fits(kLatin1))) {
        const std::string mark = "\xFF\xFE";
        return {'\1', mark + base::utf16LeOf(characters), mark + std::string(2, '\0')};
    }
    std::string bytes;
    for (const char32_t character : characters) {
        bytes += static_cast<char>(character);
    }
    return {'\0', bytes, std::string(1, '\0')};
}

std::string frameOf(EditField field, const std::string& text, unsigned version) {
    const std::string_view id = idsOf(field, version).front();
    const Encoded how = encoded(text, version);
    std::string content;
    if (field == EditField::artistUrl) {
        content = text; // an address has no encoding
    } else if (field == EditField::comment) {
        content = how.encoding + std::string("XXX") + how.nothing + how.text;
    } else {
        content = how.encoding + how.text;
    }
    const std::string_view flags =
        version == kOldestTag ? std::string_view() : std::string_view("\0\0", 2);
    return std::string(id) + sizeBytes(content.size(), id.size(), version == kNewestTag ? 7 : 8) +
           std::string(flags) + content;
}

/// A comment without a description, which is the one that editors show.
bool isPlainComment(const TagWalk& walk, const TagWalk::Frame& frame) {
    constexpr std::size_t kLanguageEnd = 4;
    const auto content = walk.contentOf(frame);
    if (!content || content->size() <= kLanguageEnd) {
        return false;
    }
    const char encoding = content->front();
    std::string_view rest = std::string_view(*content).substr(kLanguageEnd);
    const bool wide = encoding == '\1' || encoding == '\2';
    if (encoding == '\1' && (rest.starts_with("\xFF\xFE") || rest.starts_with("\xFE\xFF"))) {
        rest.remove_prefix(2);
    }
    return wide ? rest.size() >= 2 && rest[0] == '\0' && rest[1] == '\0' : rest[0] == '\0';
}

/// The frames that hold a field, as far as they are shown; by their numbers.
std::vector<std::size_t> framesOf(const TagWalk& walk, EditField field) {
    const auto& ids = idsOf(field, walk.version());
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < walk.frames().size(); ++i) {
        const std::string_view id = walk.frames().at(i).id;
        if (std::ranges::find(ids, id) != ids.end()) {
            found.push_back(i);
        }
    }
    if (field == EditField::comment && found.size() > 1) {
        const auto plain = std::ranges::find_if(
            found, [&](std::size_t i) { return isPlainComment(walk, walk.frames().at(i)); });
        return {plain == found.end() ? found.front() : *plain};
    }
    return found;
}

/// All frames of a tag, with the changes; new ones in front of what no player walks over.
std::string changedFrames(const TagWalk& walk, const TagChange& change, unsigned version) {
    std::vector<std::string> frames;
    for (const TagWalk::Frame& frame : walk.frames()) {
        frames.emplace_back(frame.bytes);
    }
    for (std::size_t number = 0; number < kEditFields; ++number) {
        const auto& text = change.texts.at(number);
        if (!text) {
            continue;
        }
        const auto field = static_cast<EditField>(number);
        const std::string fresh = text->empty() ? std::string() : frameOf(field, *text, version);
        const std::vector<std::size_t> old = framesOf(walk, field);
        for (const std::size_t i : old) {
            frames.at(i).clear();
        }
        if (old.empty()) {
            frames.push_back(fresh);
        } else {
            frames.at(old.front()) = fresh;
        }
    }
    std::string all;
    for (const std::string& frame : frames) {
        all += frame;
    }
    return all.append(walk.rest());
}

/// Where a tag ends: by its size, or where its frames or the zeros behind it go on, there.
std::int64_t endOf(TagBytes& bytes, std::string_view tag, const TagWalk& walk,
                   std::optional<std::int64_t> sound) {
    const bool footer = (static_cast<unsigned char>(tag.at(kFlagsAt)) & kFooter) != 0;
    const auto told = static_cast<std::int64_t>(kTagHeadSize + tagSize(tag.substr(kSizeAt, 4)) +
                                                (footer ? kFooterBytes : 0));
    std::int64_t end = std::max(told, static_cast<std::int64_t>(walk.usedBytes()));
    end = std::min({end, bytes.size(), sound.value_or(bytes.size())});
    if (sound && *sound > end && *sound - end <= static_cast<std::int64_t>(kMostTagBytes)) {
        const std::string rest = bytes.read(end, static_cast<std::size_t>(*sound - end));
        if (rest.find_first_not_of('\0') == std::string::npos) {
            return *sound;
        }
    }
    return end;
}

} // namespace

bool hasVersion2(TagBytes& bytes) {
    return TagWalk(bytes.read(0, kTagHeadSize)).version() != 0;
}

bool changeVersion2(TagBytes& bytes, const TagChange& change, std::optional<std::int64_t> sound) {
    if (change.keep && !change.any()) {
        return true;
    }
    std::string tag = bytes.read(0, kTagHeadSize);
    if (!hasVersion2(bytes)) {
        if (tag.starts_with(kMark)) {
            return false; // of a version that nobody knows yet
        }
        if (change.keep) {
            const std::string frames = changedFrames(TagWalk({}), change, kUsualTag);
            bytes.replace(0, 0,
                          head(kUsualTag, 0, frames.size() + kPadding) + frames +
                              std::string(kPadding, '\0'));
        }
        return true;
    }
    const std::size_t most = std::min(bodyBytes(tag), kMostTagBytes) + kTagHeadSize;
    tag = bytes.read(0, sound ? std::min(most, static_cast<std::size_t>(*sound)) : most);
    const TagWalk walk(tag);
    const std::int64_t end = endOf(bytes, tag, walk, sound);
    if (!change.keep) {
        bytes.replace(0, end, {});
        return true;
    }
    if (!walk.complete()) {
        return false;
    }
    const unsigned version = walk.version();
    const std::string frames = changedFrames(walk, change, version);
    const unsigned flags =
        version == kNewestTag ? static_cast<unsigned char>(tag.at(kFlagsAt)) & kKeptFlags : 0;
    const auto room = static_cast<std::size_t>(end) - kTagHeadSize;
    const std::size_t size = frames.size() <= room ? room : frames.size() + kPadding;
    bytes.replace(0, end,
                  head(version, flags, size) + frames + std::string(size - frames.size(), '\0'));
    return true;
}

} // namespace tovik::tags
