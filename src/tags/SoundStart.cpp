// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/SoundStart.h"

#include "tags/BigEndian.h"
#include "tags/FileWindow.h"
#include "tags/Id3v2Reader.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::tags {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kHeadBytes = 4;
constexpr char kSync = '\xFF';

/// What the head of a frame tells of its place.
struct Shape {
    std::uint32_t kind;   ///< equal for all frames of one stream: version, layer, rate
    std::int64_t length;  ///< in bytes; 0 in free format
    std::int64_t padding; ///< the bytes of it that other frames may lack
};

/// In kbit/s: version 1 with layers 1 to 3, version 2 with layer 1 and with the others.
constexpr std::array<std::array<std::uint16_t, 15>, 5> kRates{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
}};
constexpr std::array<std::int64_t, 3> kHertz{44100, 48000, 32000};

std::optional<Shape> shapeOf(std::string_view head) {
    if (head.size() < kHeadBytes || head[0] != kSync) {
        return std::nullopt;
    }
    const auto second = static_cast<unsigned char>(head[1]);
    const auto third = static_cast<unsigned char>(head[2]);
    const unsigned version = second >> 3U & 3U; // 3: 1, 2: 2, 0: 2.5
    const unsigned layer = 4U - (second >> 1U & 3U);
    const unsigned rate = third >> 4U;
    const unsigned hertz = third >> 2U & 3U;
    if (second < 0xE0 || version == 1 || layer == 4 || rate == 15 || hertz == 3) {
        return std::nullopt;
    }
    const bool first = version == 3;
    const std::size_t row = first ? layer - 1 : (layer == 1 ? 3U : 4U);
    const std::int64_t slot = layer == 1 ? 4 : 1;
    const std::int64_t samples = layer == 1 ? 384 : (layer == 3 && !first ? 576 : 1152);
    const std::int64_t divisor = kHertz[hertz] / (first ? 1 : (version == 2 ? 2 : 4));
    const std::int64_t padding = (third >> 1U & 1U) != 0 ? slot : 0;
    const std::int64_t slots = samples / 8 * kRates[row][rate] * 1000 / divisor / slot;
    return Shape{(second & 0xFEU) << 8U | (third & 0x0CU), rate == 0 ? 0 : slots * slot + padding,
                 padding};
}

/// Whether a frame of the same stream begins there; its length is asked for, too.
std::optional<Shape> follower(FileWindow& file, std::int64_t offset, std::uint32_t kind) {
    const std::optional<Shape> shape = shapeOf(file.at(offset, kHeadBytes));
    return shape && shape->kind == kind ? shape : std::nullopt;
}

/// How many frames stand in a row from an offset on, up to `most`. A row that reaches the end of
/// the file, or a tag there, is as good as `most`, but for a single frame.
int framesInRow(FileWindow& file, std::int64_t offset, int most) {
    std::optional<Shape> shape = shapeOf(file.at(offset, kHeadBytes));
    int frames = 0;
    for (const std::uint32_t kind = shape ? shape->kind : 0; shape && shape->length > 0;
         shape = follower(file, offset, kind)) {
        ++frames;
        if (frames == most) {
            return most;
        }
        offset += shape->length;
    }
    constexpr std::array kBehindSound{"TAG"sv, "APETAGEX"sv, "LYRICSBEGIN"sv};
    const bool ended = offset == file.size() ||
                       std::any_of(kBehindSound.begin(), kBehindSound.end(),
                                   [&](auto mark) { return file.at(offset, mark.size()) == mark; });
    return frames > 1 && ended ? most : frames;
}

/// Whether frames without a length in their heads follow each other at equal distances.
bool isFreeFormat(FileWindow& file, std::int64_t offset) {
    constexpr std::int64_t kShortest = 24;
    constexpr std::int64_t kLongest = 4608;
    constexpr int kFrames = 4;
    const std::optional<Shape> first = shapeOf(file.at(offset, kHeadBytes));
    if (!first || first->length != 0) {
        return false;
    }
    for (std::int64_t distance = kShortest; distance <= kLongest; ++distance) {
        std::optional<Shape> shape = first;
        std::int64_t place = offset;
        int frames = 0;
        for (; shape && shape->length == 0 && frames < kFrames; ++frames) {
            place += distance - first->padding + shape->padding;
            shape = follower(file, place, first->kind);
        }
        if (shape && frames == kFrames) {
            return true;
        }
    }
    return false;
}

/// Where sound begins by what the start of the file says: at once, or behind a tag, whose size
/// other programs write with seven bits a byte and this one with eight.
struct Claims {
    explicit Claims(FileWindow& file) {
        const std::string_view head = file.at(0, kTagHeadBytes);
        if (head.starts_with(kTagMark)) {
            const std::string_view size = head.substr(std::min<std::size_t>(head.size(), 6));
            places = {fromSevenBits(size) + kTagHeadBytes, FromBigEndian(size)};
        }
    }

    std::array<std::int64_t, 2> places{0, 0};
};

/// The first offset, at or behind `from`, with so many frames in a row.
std::optional<std::int64_t> scan(const base::RegularFile& file, std::int64_t from, int frames) {
    constexpr std::size_t kBlockBytes = 65536;
    FileWindow blocks(file, kBlockBytes);
    FileWindow heads(file, 4096);
    while (from < file.size()) {
        const std::string_view block = blocks.at(from, kBlockBytes);
        for (std::size_t place = block.find(kSync); place != std::string_view::npos;
             place = block.find(kSync, place + 1)) {
            const std::int64_t offset = from + static_cast<std::int64_t>(place);
            const std::string_view head = block.substr(place, kHeadBytes);
            const bool cut = head.size() < kHeadBytes;
            if ((cut || shapeOf(head)) && framesInRow(heads, offset, frames) >= frames) {
                return offset;
            }
        }
        if (block.empty()) {
            break; // cannot be read
        }
        from += static_cast<std::int64_t>(block.size());
    }
    return std::nullopt;
}

bool isOtherKind(FileWindow& file, std::int64_t offset) {
    struct Mark {
        std::int64_t at;
        std::string_view bytes;
    };

    constexpr std::array kMarks{
        Mark{0, "RIFF"},
        Mark{0, "RIFX"},
        Mark{0, "FORM"},
        Mark{0, "OggS"},
        Mark{0, "fLaC"},
        Mark{0, "\x30\x26\xB2\x75"},
        Mark{0, "\x1A\x45\xDF\xA3"},
        Mark{4, "ftyp"},
    };
    return std::any_of(kMarks.begin(), kMarks.end(), [&](const Mark& mark) {
        return file.at(offset + mark.at, mark.bytes.size()) == mark.bytes;
    });
}

} // namespace

std::optional<std::int64_t> firstSound(const base::RegularFile& file, std::int64_t from) {
    FileWindow window(file);
    std::optional<std::int64_t> first = scan(file, from, 2);
    for (const std::int64_t claim : Claims(window).places) {
        if (claim < from || (first && claim >= *first)) {
            continue;
        }
        const std::optional<Shape> shape = shapeOf(window.at(claim, kHeadBytes));
        if (shape && ((claim > 0 && shape->length > 0) || isFreeFormat(window, claim))) {
            first = claim;
        }
    }
    return first;
}

bool isMpegAudio(const base::RegularFile& file) {
    constexpr int kFrames = 4;
    FileWindow window(file);
    const auto places = Claims(window).places;
    if (isOtherKind(window, 0) ||
        std::any_of(places.begin(), places.end(),
                    [&](std::int64_t place) { return place > 0 && isOtherKind(window, place); })) {
        return false;
    }
    return std::any_of(
               places.begin(), places.end(),
               [&](std::int64_t place) { return place >= 0 && isFreeFormat(window, place); }) ||
           scan(file, 0, kFrames);
}

} // namespace tovik::tags
