// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/LostFrames.h"

#include "tags/BigEndian.h"
#include "tags/GenreNames.h"
#include "tags/Id3v2Reader.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

namespace tovik::tags {

namespace {

constexpr std::size_t kIdBytes = 4;
constexpr char kExtended = '\x40';

bool isId(std::string_view id) {
    return !id.empty() && std::all_of(id.begin(), id.end(), [](char sign) {
        return (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9');
    });
}

/// What the program's own reader takes for frames: the size of the content by the place.
std::map<std::int64_t, std::size_t> seenFrames(FileWindow& file) {
    std::map<std::int64_t, std::size_t> seen;
    ParseTag(file, static_cast<std::int64_t>(kTagMark.size()) + 1,
             [&seen](const RawFrame& frame) { seen.emplace(frame.offset, frame.content.size()); });
    return seen;
}

/// Without a language for others to read, a comment of one piece comes back as it was.
bool isPlainComment(std::string_view content) {
    constexpr std::size_t kTextAt = 5; // encoding, language, an empty description
    return content.size() >= kTextAt && content[0] == '\0' && content[kTextAt - 1] == '\0' &&
           content.find('\0', kTextAt) == std::string_view::npos;
}

bool isGenre(std::string_view text, int genre) {
    const std::string_view name = genreName(genre);
    const std::string number = "(" + std::to_string(genre) + ")";
    return (!name.empty() && text == name) || text == number || text == number + std::string(name);
}

bool isKept(std::string_view id, std::string_view content, std::optional<int> genre) {
    const bool same = content.starts_with('\0') && content.substr(1) == frameText(content);
    if (genre && id == "COMM") {
        return isPlainComment(content);
    }
    if (genre && id == "TCON") {
        return same && isGenre(content.substr(1), *genre);
    }
    return same;
}

class Walk {
public:
    Walk(FileWindow& file, std::optional<int> genre) : file_(file), genre_(genre) {}

    std::vector<std::string> run() {
        const std::string head(file_.at(0, kTagHeadBytes));
        if (head.size() < static_cast<std::size_t>(kTagHeadBytes) || !head.starts_with(kTagMark)) {
            return {};
        }
        const std::string_view size = std::string_view(head).substr(6);
        const auto plain = static_cast<std::int64_t>(FromBigEndian(size));
        end_ = std::min(file_.size(), std::max(plain, fromSevenBits(size) + kTagHeadBytes));
        offset_ = kTagHeadBytes;
        const auto version = static_cast<std::int8_t>(head[3]);
        if (version == 2) {
            walkVersion2();
        } else if (version == 3 || version == 4) {
            sevenBits_ = version == 4;
            seen_ = seenFrames(file_);
            skipExtendedHead(head[5]);
            walk();
        } else if (version >= 0) { // beyond that it is no head at all
            lose("ID3v2." + std::to_string(static_cast<int>(version)));
        }
        return lost_;
    }

private:
    void lose(const std::string& id) {
        if (std::find(lost_.begin(), lost_.end(), id) == lost_.end()) {
            lost_.push_back(id);
        }
    }

    [[nodiscard]] std::int64_t sizeAt(std::int64_t offset) {
        const std::string_view bytes = file_.at(offset, 4);
        return sevenBits_ ? fromSevenBits(bytes) : FromBigEndian(bytes);
    }

    void skipExtendedHead(char flags) {
        if ((flags & kExtended) != 0) {
            // Version 3 does not count the size itself.
            offset_ += std::max<std::int64_t>(sizeAt(offset_), 0) + (sevenBits_ ? 0 : 4);
        }
    }

    void walkVersion2() {
        constexpr std::int64_t kHeadBytes = 6;
        while (offset_ + kHeadBytes <= end_) {
            const std::string id(file_.at(offset_, 3));
            if (!isId(id)) {
                return;
            }
            lose(id);
            offset_ += kHeadBytes + FromBigEndian('\0' + std::string(file_.at(offset_ + 3, 3)));
        }
    }

    void walk() {
        constexpr auto kHeadBytes = static_cast<std::int64_t>(kFrameHeadBytes);
        while (offset_ + kHeadBytes <= end_) {
            const std::string head(file_.at(offset_, kFrameHeadBytes));
            const std::string id = head.substr(0, kIdBytes);
            const std::int64_t size = sizeAt(offset_ + static_cast<std::int64_t>(kIdBytes));
            if (!isId(id)) {
                return;
            }
            const auto seen = seen_.find(offset_);
            const bool another = genre_ && id == "COMM" && std::exchange(commentSeen_, true);
            const bool whole = size >= 0 && offset_ + kHeadBytes + size <= file_.size();
            if (!whole || another || seen == seen_.end() ||
                seen->second != static_cast<std::size_t>(size) || head.back() != '\0' ||
                !isKept(id, file_.at(offset_ + kHeadBytes, static_cast<std::size_t>(size)),
                        genre_)) {
                lose(id);
            }
            if (!whole) {
                return;
            }
            offset_ += kHeadBytes + size;
        }
    }

    FileWindow& file_;
    std::optional<int> genre_;
    std::map<std::int64_t, std::size_t> seen_;
    bool sevenBits_ = false;
    bool commentSeen_ = false; ///< several become one
    std::int64_t end_ = 0;
    std::int64_t offset_ = 0;
    std::vector<std::string> lost_;
};

} // namespace

std::vector<std::string> lostFrames(const std::string& path, std::optional<int> genre) {
    const base::RegularFile file(path, base::RegularFile::Access::Read);
    if (file.failure()) {
        return {};
    }
    FileWindow window(file);
    return Walk(window, genre).run();
}

} // namespace tovik::tags
